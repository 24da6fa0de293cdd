// A pattern's drawing made ready for the window, which may be done on any thread.
#pragma once

#include <QImage>
#include <memory>
#include <vector>

#include "motifs/Planche.h"

constexpr Couleur kFondDessin = 0xFFFDF6;  // the paper beside the fields

// The drawing in ever smaller copies, each half of the last, so that a far view is quick and quiet. A drawing
// of more than 16 million cells begins with a smaller copy.
class CopiesDessin {
 public:
  explicit CopiesDessin(const Planche &planche);
  // The copy for a zoom in pixels a cell, and the cells that one of its pixels holds along a side.
  const QImage &Pour(double zoom, int &cellules) const;

 private:
  std::vector<QImage> images_;
  int premiere_ = 1;
};

struct DessinPret {
  DessinPret(std::shared_ptr<const Motif> m, const ReglagesPlanche &reglages)
      : motif(std::move(m)), planche(*motif, reglages), copies(planche) {}

  const std::shared_ptr<const Motif> motif;
  const Planche planche;
  const CopiesDessin copies;
};
