// The keyboard and the panels of a window.
#include <algorithm>
#include <utility>

#include "platform/qt/miroir/Veilleur.h"

namespace {
bool VoletVisible(const Natif &natif) { return natif.Widget()->isVisible() && natif.Donnee().Volet; }
}  // namespace

bool Veilleur::DansVolet(const Natif &natif) const {
  for (QWidget *w = natif.Widget(); w; w = w->parentWidget())
    if (const Natif *autour = natifs_.value(w); autour && VoletVisible(*autour)) return true;
  return false;
}

void Veilleur::SuivreVolet() {
  const bool ouvert = std::any_of(ordre_.begin(), ordre_.end(), [](const Natif *n) { return VoletVisible(*n); });
  if (std::exchange(voletOuvert_, ouvert) == ouvert) return;
  if (ouvert) {
    retour_ = guichet_.AuClavier;
    const std::vector<Natif *> ordre = OrdreLecture();
    if (retour_ && !ordre.empty()) ordre.front()->Widget()->setFocus(Qt::TabFocusReason);
  } else if (retour_) {
    retour_->setFocus(Qt::TabFocusReason);
    retour_.clear();
  }
}
