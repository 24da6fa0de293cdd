#include "app-motifs/fenetre/VueMotif.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace {
constexpr double kZoomMin = 1.0 / 32, kZoomMax = 48, kZoomAvecGrille = 5, kZoomLieu = 8;  // pixels a cell
constexpr int kPas = 40;  // pixels a key moves
const QColor kFond(0xD3, 0xD7, 0xDB);
constexpr long long kCellulesMax = 16'000'000;

// Half a picture in both directions, its pixels the means of four.
QImage Moitie(const QImage &image) {
  QImage moitie((image.width() + 1) / 2, (image.height() + 1) / 2, QImage::Format_RGB32);
  for (int y = 0; y < moitie.height(); ++y) {
    const auto *haut = reinterpret_cast<const QRgb *>(image.constScanLine(2 * y));
    const auto *bas =
        reinterpret_cast<const QRgb *>(image.constScanLine(std::min(2 * y + 1, image.height() - 1)));
    auto *sortie = reinterpret_cast<QRgb *>(moitie.scanLine(y));
    for (int x = 0; x < moitie.width(); ++x) {
      const int gauche = 2 * x, droite = std::min(2 * x + 1, image.width() - 1);
      const auto moyenne = [&](int d) {
        return (((haut[gauche] >> d & 255) + (haut[droite] >> d & 255) + (bas[gauche] >> d & 255) +
                 (bas[droite] >> d & 255) + 2) /
                4)
               << d;
      };
      sortie[x] = 0xFF000000U | moyenne(16) | moyenne(8) | moyenne(0);
    }
  }
  return moitie;
}
}  // namespace

CopiesDessin::CopiesDessin(const Planche &planche) {
  const int largeur = planche.Largeur(), hauteur = planche.Hauteur();
  while (static_cast<long long>(largeur / premiere_) * (hauteur / premiere_) > kCellulesMax) premiere_ *= 2;
  QImage image(std::max(1, largeur / premiere_), std::max(1, hauteur / premiere_), QImage::Format_RGB32);
  std::vector<Couleur> cases(static_cast<std::size_t>(largeur));
  for (int y = 0; y < image.height(); ++y) {
    planche.Ligne(y * premiere_, cases.data());
    auto *sortie = reinterpret_cast<QRgb *>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x)
      sortie[x] = 0xFF000000U | cases[static_cast<std::size_t>(x * premiere_)];
  }
  images_.push_back(image);
  while (images_.back().width() > 64 && images_.back().height() > 64)
    images_.push_back(Moitie(images_.back()));
}

const QImage &CopiesDessin::Pour(double zoom, int &cellules) const {
  std::size_t i = 0;
  cellules = premiere_;
  while (i + 1 < images_.size() && zoom * cellules < 0.75) {
    ++i;
    cellules *= 2;
  }
  return images_[i];
}

VueMotif::VueMotif(Langue langue, QWidget *parent) : QWidget(parent), langue_(langue) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMinimumSize(320, 240);
  const bool fr = langue == Langue::Francais;
  setAccessibleName(fr ? QStringLiteral("Dessin du motif") : QStringLiteral("Drawing of the pattern"));
  setAccessibleDescription(
      fr ? QStringLiteral("Flèches : déplacer. Plus et moins : grossir. Zéro : tout voir.")
         : QStringLiteral("Arrows move. Plus and minus zoom. Zero shows all."));
}

void VueMotif::Montrer(std::shared_ptr<const Motif> motif) {
  copies_.reset();
  planche_.reset();
  motif_ = std::move(motif);
  lieu_ = {};
  if (motif_) copies_.emplace(planche_.emplace(*motif_, ReglagesPlanche{.enHaut = true}));
  Ajuster();
}

void VueMotif::Ajuster() {
  ajuste_ = true;
  if (planche_) {
    zoom_ = std::clamp(std::min(static_cast<double>(width()) / planche_->Largeur(),
                                static_cast<double>(height()) / planche_->Hauteur()),
                       kZoomMin, 16.0);
    origine_ = {};
  }
  Retenir();
}

void VueMotif::MontrerLieu(const Constat &c) {
  if (!planche_) return;
  const Planche &p = *planche_;
  const Zone &t = p.tissu.Vide() ? p.pas : p.tissu;
  lieu_ = {};
  if (c.duite > 0 && c.fil > 0)
    lieu_ = QRectF(p.XFil(c.dernierFil), p.YDuite(c.duite), c.dernierFil - c.fil + 1,
                   c.derniereDuite - c.duite + 1);
  else if (c.duite > 0)
    lieu_ = QRectF(t.x, p.YDuite(c.duite), p.pas.x + p.pas.largeur - t.x,
                   std::max(c.derniereDuite - c.duite, 0) + 1);
  else if (c.fil > 0)
    lieu_ =
        QRectF(p.XFil(c.dernierFil), p.enfilage.y, c.dernierFil - c.fil + 1, t.y + t.hauteur - p.enfilage.y);
  else if (c.lame > 0 && c.lame <= p.enfilage.hauteur)
    lieu_ = QRectF(p.enfilage.x, p.YLame(c.lame), p.enfilage.largeur, 1);
  if (!lieu_.isNull()) {
    ajuste_ = false;
    // As near as the place fits, but not so near that the cloth around it is lost.
    const double juste = std::min(width() / (lieu_.width() + 8), height() / (lieu_.height() + 8));
    zoom_ = std::clamp(std::min(std::max(zoom_, kZoomLieu), juste), kZoomMin, kZoomMax);
    origine_ = lieu_.center() - QPointF(width(), height()) / (2 * zoom_);
  }
  Retenir();
}

void VueMotif::Zoomer(double facteur, QPointF point) {
  ajuste_ = false;
  const QPointF cellule = origine_ + point / zoom_;
  zoom_ = std::clamp(zoom_ * facteur, kZoomMin, kZoomMax);
  origine_ = cellule - point / zoom_;
  Retenir();
}

void VueMotif::Deplacer(QPointF pixels) {
  ajuste_ = false;
  origine_ += pixels / zoom_;
  Retenir();
}

// Keeps the drawing in the window: centred where it is smaller, without empty margins where it is larger.
void VueMotif::Retenir() {
  if (planche_) {
    const auto retenir = [](double origine, double cellules, double vues) {
      return vues >= cellules ? (cellules - vues) / 2 : std::clamp(origine, 0.0, cellules - vues);
    };
    origine_ = {retenir(origine_.x(), planche_->Largeur(), width() / zoom_),
                retenir(origine_.y(), planche_->Hauteur(), height() / zoom_)};
  }
  update();
}

void VueMotif::paintEvent(QPaintEvent *) {
  QPainter peintre(this);
  if (!planche_) return peintre.fillRect(rect(), kFond);
  if (zoom_ >= kZoomAvecGrille)
    PeindreDePres(peintre);
  else
    PeindreDeLoin(peintre);
  if (!lieu_.isNull()) PeindreLieu(peintre);
}

void VueMotif::PeindreDeLoin(QPainter &peintre) {
  peintre.fillRect(rect(), kFond);
  int cellules = 1;
  const QImage &image = copies_->Pour(zoom_, cellules);
  // Whole pixels of the copy alone, so that cells keep their edges while the drawing moves.
  const double pixel = zoom_ * cellules;
  const int gauche = std::max(0, static_cast<int>(std::floor(origine_.x() / cellules)));
  const int haut = std::max(0, static_cast<int>(std::floor(origine_.y() / cellules)));
  const int largeur = std::min(image.width() - gauche, static_cast<int>(std::ceil(width() / pixel)) + 2);
  const int hauteur = std::min(image.height() - haut, static_cast<int>(std::ceil(height() / pixel)) + 2);
  if (largeur <= 0 || hauteur <= 0) return;
  const QRectF cible((gauche * cellules - origine_.x()) * zoom_, (haut * cellules - origine_.y()) * zoom_,
                     largeur * pixel, hauteur * pixel);
  peintre.drawImage(cible, image, QRectF(gauche, haut, largeur, hauteur));
}

// Each cell ends in a darker line. A row of pixels is made once for a row of cells and copied: many times
// quicker than lines drawn over a picture.
void VueMotif::PeindreDePres(QPainter &peintre) {
  if (pres_.size() != size()) pres_ = QImage(size(), QImage::Format_RGB32);
  pres_.fill(kFond);
  const auto bord = [](int cellule, double origine, double zoom, int fin) {
    return std::clamp(static_cast<int>(std::round((cellule - origine) * zoom)), 0, fin);
  };
  std::vector<Couleur> cases(static_cast<std::size_t>(planche_->Largeur()));
  std::vector<QRgb> rangee(static_cast<std::size_t>(width())), trait(rangee.size());
  const int gauche = bord(0, origine_.x(), zoom_, width()),
            droite = bord(planche_->Largeur(), origine_.x(), zoom_, width());
  const int premiere = std::max(0, static_cast<int>(origine_.y()));
  for (int y = premiere; y < planche_->Hauteur(); ++y) {
    const int haut = bord(y, origine_.y(), zoom_, height()), bas = bord(y + 1, origine_.y(), zoom_, height());
    if (haut >= height()) break;
    planche_->Ligne(y, cases.data(), true);
    for (int x = std::max(0, static_cast<int>(origine_.x())); x < planche_->Largeur(); ++x) {
      const int a = bord(x, origine_.x(), zoom_, width()), b = bord(x + 1, origine_.x(), zoom_, width());
      if (a >= width()) break;
      const Couleur c = cases[static_cast<std::size_t>(x)];
      const QRgb plein = 0xFF000000U | c, sombre = 0xFF000000U | Trait(CouleurDe(c));
      std::fill(rangee.begin() + a, rangee.begin() + b, plein);
      std::fill(trait.begin() + a, trait.begin() + b, c & kTraitBas ? sombre : plein);
      if (b > a && c & kTraitDroite)
        rangee[static_cast<std::size_t>(b - 1)] = trait[static_cast<std::size_t>(b - 1)] = sombre;
    }
    for (int i = haut; i < bas; ++i) {
      const std::vector<QRgb> &source = i == bas - 1 ? trait : rangee;
      std::copy(source.begin() + gauche, source.begin() + droite,
                reinterpret_cast<QRgb *>(pres_.scanLine(i)) + gauche);
    }
  }
  peintre.drawImage(0, 0, pres_);
}

void VueMotif::PeindreLieu(QPainter &peintre) {
  const QRectF lieu((lieu_.topLeft() - origine_) * zoom_, lieu_.size() * zoom_);
  peintre.setPen(QPen(Qt::white, 4));
  peintre.drawRect(lieu.adjusted(-2, -2, 2, 2));
  peintre.setPen(QPen(QColor(0xD0, 0x3A, 0x00), 2));
  peintre.drawRect(lieu.adjusted(-2, -2, 2, 2));
}

void VueMotif::wheelEvent(QWheelEvent *evenement) {
  Zoomer(std::pow(1.0015, evenement->angleDelta().y()), evenement->position());
  evenement->accept();
}

void VueMotif::mousePressEvent(QMouseEvent *evenement) {
  if (evenement->button() != Qt::LeftButton) return;
  prise_ = evenement->position();
  setCursor(Qt::ClosedHandCursor);
}

void VueMotif::mouseMoveEvent(QMouseEvent *evenement) {
  if (evenement->buttons() & Qt::LeftButton) {
    Deplacer(prise_ - evenement->position());
    prise_ = evenement->position();
  }
  DireLieu(evenement->position());
}

void VueMotif::mouseReleaseEvent(QMouseEvent *) { unsetCursor(); }

void VueMotif::DireLieu(QPointF point) {
  if (!planche_) return;
  const QPointF cellule = origine_ + point / zoom_;
  const Planche &p = *planche_;
  const int x = static_cast<int>(std::floor(cellule.x())), y = static_cast<int>(std::floor(cellule.y()));
  const int fil = p.tissu.x + p.tissu.largeur - x, duite = y - p.tissu.y + 1;
  const bool surFil = fil >= 1 && fil <= motif_->Fils(), surDuite = duite >= 1 && duite <= motif_->Duites();
  const bool fr = langue_ == Langue::Francais;
  QStringList mots;
  if (surFil)
    mots << (fr ? QStringLiteral("fil %1, lame %2") : QStringLiteral("end %1, harness %2"))
                .arg(fil)
                .arg(QString::fromStdString(ListeLames(motif_->enfilage[static_cast<std::size_t>(fil - 1)])));
  if (surDuite)
    mots << (fr ? QStringLiteral("duite %1 : %2") : QStringLiteral("pick %1: %2"))
                .arg(duite)
                .arg(QString::fromStdString(ListeLames(motif_->foules[static_cast<std::size_t>(duite - 1)])));
  emit Survole(mots.join(QStringLiteral("   ")));
}

void VueMotif::keyPressEvent(QKeyEvent *evenement) {
  const QPointF milieu(width() / 2.0, height() / 2.0);
  switch (evenement->key()) {
    case Qt::Key_Left:
      Deplacer({-kPas, 0});
      break;
    case Qt::Key_Right:
      Deplacer({kPas, 0});
      break;
    case Qt::Key_Up:
      Deplacer({0, -kPas});
      break;
    case Qt::Key_Down:
      Deplacer({0, kPas});
      break;
    case Qt::Key_PageUp:
      Deplacer({0, -0.9 * height()});
      break;
    case Qt::Key_PageDown:
      Deplacer({0, 0.9 * height()});
      break;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      Zoomer(1.25, milieu);
      break;
    case Qt::Key_Minus:
      Zoomer(0.8, milieu);
      break;
    case Qt::Key_0:
    case Qt::Key_Home:
      Ajuster();
      break;
    default:
      QWidget::keyPressEvent(evenement);
  }
}

void VueMotif::resizeEvent(QResizeEvent *) {
  if (ajuste_)
    Ajuster();
  else
    Retenir();
}
