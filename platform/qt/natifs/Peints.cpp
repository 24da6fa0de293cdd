#include "platform/qt/natifs/Peints.h"

#include <QPaintEvent>
#include <QPainter>

#include "controls/Palette.h"
#include "platform/qt/natifs/TexteNatif.h"

namespace {
// One to one in logical pixels; smoothed where the screen has more of them.
void Poser(QPainter &p, const QImage &image) {
  p.setRenderHint(QPainter::SmoothPixmapTransform, p.device()->devicePixelRatioF() != 1.0);
  p.drawImage(0, 0, image);
}
// The colour outside an outline gives way to its neighbours, else smoothing would bring it in along the edge.
QImage SansCle(const QImage &image) {
  QImage sans = image;
  const QRgb cle = image.pixel(0, 0);
  constexpr QPoint voisins[] = {{1, 0}, {-1, 0}, {0, 1}, {0, -1}, {1, 1}, {-1, 1}, {1, -1}, {-1, -1}};
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixel(x, y) != cle) continue;
      for (const QPoint &v : voisins)
        if (image.valid(x + v.x(), y + v.y()) && image.pixel(x + v.x(), y + v.y()) != cle) {
          sans.setPixel(x, y, image.pixel(x + v.x(), y + v.y()));
          break;
        }
    }
  return sans;
}
}  // namespace

void PeindreAnneau(QPainter &p, const QRect &place) {
  // Dark beside light, to be seen on every face.
  p.setBrush(Qt::NoBrush);
  p.setPen(QPen(Teinte(Palette::EncreNoire), 1));
  p.drawRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5));
  p.setPen(QPen(Teinte(Palette::Orange), 2));
  p.drawRect(QRectF(place).adjusted(2, 2, -2, -2));
}

void Peint::paintEvent(QPaintEvent *e) {
  QPainter p(this);
  Peindre(p, e->rect());
  if (anneau_) PeindreAnneau(p, rect());
}

void PeintEtiquette::Cerne(bool cerne) {
  cerne_ = cerne;
  update();
}

void PeintEtiquette::Plaque(bool plaque) {
  plaque_ = plaque;
  update();
}

int PeintEtiquette::Drapeaux() const { return int(alignment()) | (wordWrap() ? Qt::TextWordWrap : 0); }

// All of a label without margins, else what the text takes and the margins around it.
QRect PeintEtiquette::PlacePlaque() const {
  const QMargins marges = contentsMargins();
  if (marges.isNull()) return rect();
  return fontMetrics()
      .boundingRect(contentsRect(), Drapeaux(), text())
      .marginsAdded(marges)
      .intersected(rect());
}

void PeintEtiquette::PeindreCerne(QPainter &p) const {
  p.setPen(Teinte(Palette::EncreNoire));
  for (int dx = -1; dx <= 1; ++dx)
    for (int dy = -1; dy <= 1; ++dy)
      if (dx != 0 || dy != 0) p.drawText(contentsRect().translated(dx, dy), Drapeaux(), text());
}

void PeintEtiquette::paintEvent(QPaintEvent *e) {
  if (cerne_ || (plaque_ && !text().isEmpty())) {
    QPainter p(this);
    if (plaque_) p.fillRect(PlacePlaque(), Teinte(Palette::Noir));
    if (cerne_) PeindreCerne(p);
  }
  QLabel::paintEvent(e);
  if (!anneau_) return;
  QPainter p(this);
  PeindreAnneau(p, rect());
}

void PeintDessin::Dessin(const Surface &surface, const QImage &fine) {
  // The picture holds the very pixels of the surface, which draws on in a copy.
  using Partage = std::shared_ptr<const std::uint32_t[]>;
  image_ = QImage();
  if (surface.Largeur() > 0 && surface.Hauteur() > 0) {
    auto *pixels = new Partage(surface.Pixels());
    image_ = QImage(
        reinterpret_cast<const uchar *>(pixels->get()), surface.Largeur(), surface.Hauteur(),
        surface.Largeur() * 4, QImage::Format_RGB32, [](void *p) { delete static_cast<Partage *>(p); },
        pixels);
  }
  fine_ = fine;
  textes_ = surface.Textes();
  sansCle_ = QImage();
  update();
}

void PeintDessin::Pose(const QImage &image, QPoint place) {
  pose_ = image;
  place_ = place;
  update();
}

// The skin of a shaped window, which fills it, is the one picture that is cut by the outline.
bool PeintDessin::Peau() const { return size() == window()->size() && !window()->mask().isEmpty(); }

const QImage &PeintDessin::ImagePour(double echelle) {
  const QImage &image = fine_.isNull() ? image_ : fine_;
  if (echelle == 1.0 || !Peau()) return image;
  if (sansCle_.isNull()) sansCle_ = SansCle(image);
  return sansCle_;
}

void PeintDessin::Fond(Couleur couleur) {
  couleur_ = couleur;
  setAttribute(Qt::WA_OpaquePaintEvent, !window()->testAttribute(Qt::WA_TranslucentBackground));
  update();
}

void PeintDessin::Peindre(QPainter &p, const QRect &) {
  if (Peau() && window()->testAttribute(Qt::WA_TranslucentBackground)) p.setClipRegion(window()->mask());
  const bool couvert = image_.width() >= width() && image_.height() >= height();
  if (!couvert) p.fillRect(rect(), Teinte(couleur_));
  if (!image_.isNull()) Poser(p, ImagePour(devicePixelRatioF()));
  if (!pose_.isNull()) p.drawImage(place_, pose_);
  for (const TexteImprime &e : textes_) {
    p.setFont(Fonte(e.police));
    p.setPen(Teinte(e.couleur));
    const QRectF place(e.x / double{kTwipsParPixel}, e.y / double{kTwipsParPixel}, width(), height());
    p.drawText(place, Qt::AlignLeft | Qt::AlignTop | Qt::TextDontClip, Texte(e.texte));
  }
}

void PeintImage::Picture(const QImage &image) {
  image_ = image;
  update();
}

void PeintImage::Peindre(QPainter &p, const QRect &) {
  if (!image_.isNull()) Poser(p, image_);
}

PeintForme::PeintForme(QWidget *parent) : Peint(parent) { setAttribute(Qt::WA_TransparentForMouseEvents); }

void PeintForme::Bord(Couleur couleur, int epaisseur) {
  couleur_ = couleur;
  epaisseur_ = epaisseur;
  update();
}

void PeintForme::Peindre(QPainter &p, const QRect &) {
  QPen plume(Teinte(couleur_), epaisseur_);
  plume.setJoinStyle(Qt::MiterJoin);
  const double demi = epaisseur_ / 2.0;
  p.setPen(plume);
  p.drawRect(QRectF(rect()).adjusted(demi, demi, -demi, -demi));
}

void PeintGrille::Meubler(const std::array<QImage, kImages> &images, const Places &places) {
  images_ = images;
  places_ = places;
}

void PeintGrille::Montrer(const Cases &cases) {
  QRegion changees;
  for (std::size_t i = 0; i < kCases; ++i)
    if (cases[i] != cases_[i]) changees += places_[i];
  cases_ = cases;
  update(changees);
}

void PeintGrille::Peindre(QPainter &p, const QRect &sale) {
  PeintDessin::Peindre(p, sale);
  for (std::size_t i = 0; i < kCases; ++i)
    if (cases_[i] != kCachee && places_[i].intersects(sale))
      p.drawImage(places_[i], images_[static_cast<std::size_t>(cases_[i])]);
}
