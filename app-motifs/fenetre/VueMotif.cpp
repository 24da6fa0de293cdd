#include "app-motifs/fenetre/VueMotif.h"

#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace {
constexpr double kZoomMin = 1.0 / 32, kZoomMax = 48, kZoomLieu = 8;  // pixels a cell
constexpr double kPixelsAvecTraits = 4;                              // of the screen, a cell
constexpr double kCoteMin = 3;      // pixels of a harness where the cloth has less
constexpr double kPartTete = 0.34;  // of the widget, for threading or plan
constexpr int kTexte = 11;          // pixels of a number
constexpr int kGauche = 20, kDroite = 38, kDehors = 17, kBord = 6;  // pixels about the fields
const QColor kFond(kFondDessin), kNombre(0x5A, 0x4A, 0x34), kFilet(0xB4, 0xA6, 0x8A);

class AccesVue : public QAccessibleWidget {
 public:
  explicit AccesVue(VueMotif *vue) : QAccessibleWidget(vue, QAccessible::Graphic) {}
  QString text(QAccessible::Text sorte) const override {
    return sorte == QAccessible::Help ? static_cast<VueMotif *>(widget())->Aide()
                                      : QAccessibleWidget::text(sorte);
  }
};
}  // namespace

void InstallerAccesVue() {
  QAccessible::installFactory([](const QString &classe, QObject *objet) -> QAccessibleInterface * {
    auto *vue = classe == QLatin1String("VueMotif") ? qobject_cast<VueMotif *>(objet) : nullptr;
    return vue ? new AccesVue(vue) : nullptr;
  });
}

VueMotif::VueMotif(Langue langue, QWidget *parent) : QWidget(parent), langue_(langue) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMinimumSize(200, 120);
  setAccessibleName(langue == Langue::Francais ? QStringLiteral("Dessin du motif")
                                               : QStringLiteral("Drawing of the pattern"));
  setAccessibleDescription(Aide());
}

QString VueMotif::Aide() const {
  return langue_ == Langue::Francais
             ? QStringLiteral(
                   "Flèches : d'un fil ou d'une duite à l'autre. Plus et moins : grossir. Zéro : tout voir.")
             : QStringLiteral("Arrows go from thread to thread. Plus and minus zoom. Zero shows all.");
}

void VueMotif::Montrer(std::shared_ptr<const DessinPret> dessin, bool garder) {
  dessin_ = std::move(dessin);
  if (!garder) {
    lieu_.reset();
    curseurFil_ = curseurDuite_ = 0;
    setAccessibleDescription(Aide());
  }
  if (garder && !ajuste_ && dessin_) {
    Disposer();
    update();
  } else {
    Ajuster();
  }
}

// Of threading or plan: as wide as the cloth's own, but neither lost nor in its way.
double VueMotif::Cote(int cases, double place) const {
  return std::clamp(zoom_, std::min(kCoteMin, std::max(0.5, place * kPartTete / std::max(cases, 1))),
                    std::max(kCoteMin, place * kPartTete / std::max(cases, 1)));
}

// Where each field lies, from zoom and origin; keeps the drawing in the window: centred where it is smaller,
// without empty margins where it is larger.
void VueMotif::Disposer() {
  if (!dessin_) return;
  const Planche &p = dessin_->planche;
  const bool enHaut = p.Reglages().enHaut;
  const int finTissu = p.tissu.x + p.tissu.largeur;
  const double largeur = width() - kGauche - kDroite, hauteur = height() - kDehors - kBord;
  cote_ = {finTissu, p.Largeur() - 1 - finTissu, 0, 0, Cote(p.Largeur() - 1 - finTissu, largeur), 0};
  cote_.taille = cote_.nombre * cote_.pas;
  tete_ = {enHaut ? 1 : p.tissu.y + p.tissu.hauteur, p.Hauteur() - p.DuitesTracees() - 2, 0, 0, 1, 0};
  tete_.pas = Cote(tete_.nombre, hauteur);
  tete_.taille = tete_.nombre * tete_.pas;
  fils_ = {p.tissu.x, p.tissu.largeur, 0, 0, zoom_, 0};
  duites_ = {p.tissu.y, p.tissu.hauteur, 0, 0, zoom_, 0};
  fils_.taille = std::clamp(fils_.nombre * zoom_, 0.0, std::max(0.0, largeur - cote_.taille));
  duites_.taille = std::clamp(duites_.nombre * zoom_, 0.0, std::max(0.0, hauteur - tete_.taille));
  origine_ = {std::clamp(origine_.x(), 0.0, std::max(0.0, fils_.nombre - fils_.taille / zoom_)),
              std::clamp(origine_.y(), 0.0, std::max(0.0, duites_.nombre - duites_.taille / zoom_))};
  fils_.origine = origine_.x();
  duites_.origine = origine_.y();
  fils_.debut = kGauche + std::max(0.0, std::floor((largeur - fils_.taille - cote_.taille) / 2));
  cote_.debut = fils_.Fin();
  const double haut =
      (enHaut ? kDehors : kBord) + std::max(0.0, std::floor((hauteur - duites_.taille - tete_.taille) / 2));
  (enHaut ? tete_ : duites_).debut = haut;
  (enHaut ? duites_ : tete_).debut = haut + (enHaut ? tete_ : duites_).taille;
}

void VueMotif::Ajuster() {
  ajuste_ = true;
  if (dessin_) {
    double moins = kZoomMin, plus = 16;
    for (int i = 0; i < 24; ++i) {
      zoom_ = (moins + plus) / 2;
      Disposer();
      const bool tient =
          fils_.nombre * zoom_ <= fils_.taille + 1e-6 && duites_.nombre * zoom_ <= duites_.taille + 1e-6;
      (tient ? moins : plus) = zoom_;
    }
    zoom_ = moins;
    const Planche &p = dessin_->planche;
    // What does not fit all the same begins where weaving does.
    origine_ = {static_cast<double>(p.tissu.largeur), p.Reglages().enHaut ? 0.0 : p.tissu.hauteur};
    Disposer();
  }
  update();
}

QRectF VueMotif::CaseDe(int rangFil, int rangDuite) const {
  if (!dessin_) return {};
  const Planche &p = dessin_->planche;
  return {fils_.Bord(p.XFil(rangFil)), duites_.Bord(p.YDuite(rangDuite)), zoom_, zoom_};
}

void VueMotif::MontrerLieu(const Lieu &lieu) {
  if (!dessin_) return;
  lieu_.reset();
  const Planche &p = dessin_->planche;
  if (lieu.duite > 0 || lieu.fil > 0 || lieu.lame > 0) lieu_ = lieu;
  if (lieu_) {
    ajuste_ = false;
    const bool lameSeule = lieu.duite == 0 && lieu.fil == 0;
    const int fils = lameSeule ? p.FilsTraces() : std::max(lieu.dernierFil - lieu.fil, 0) + 1,
              duites = std::max(lieu.derniereDuite - lieu.duite, 0) + 1 +
                       (p.Reglages().reprises > 1 ? lieu.suite : 0);
    // As near as the place fits, but not so near that the cloth around it is lost.
    const double juste = std::min(width() * 0.6 / ((lieu.duite > 0 && lieu.fil == 0 ? 1 : fils) + 8),
                                  height() * 0.6 / ((lieu.duite > 0 ? duites : 1) + 8));
    zoom_ = std::clamp(std::min(std::max(zoom_, kZoomLieu), juste), kZoomMin, kZoomMax);
    Disposer();
    if (lieu.fil > 0)
      origine_.setX(p.XFil(lieu.fil) + 1 - fils / 2.0 - fils_.cellule - fils_.taille / (2 * zoom_));
    if (lieu.duite > 0) {
      const double milieu = (p.YDuite(lieu.duite) + p.YDuite(lieu.duite + duites - 1) + 1) / 2.0;
      origine_.setY(milieu - duites_.cellule - duites_.taille / (2 * zoom_));
    }
    Disposer();
  }
  update();
}

void VueMotif::Zoomer(double facteur, QPointF point) {
  if (!dessin_) return;
  ajuste_ = false;
  const QPointF cellule(fils_.Cellule(point.x()), duites_.Cellule(point.y()));
  zoom_ = std::clamp(zoom_ * facteur, kZoomMin, kZoomMax);
  // The fields grow and move with the zoom, so the point is aimed at anew.
  for (int i = 0; i < 2; ++i) {
    Disposer();
    origine_ = {cellule.x() - fils_.cellule - (point.x() - fils_.debut) / zoom_,
                cellule.y() - duites_.cellule - (point.y() - duites_.debut) / zoom_};
  }
  Disposer();
  update();
}

void VueMotif::Deplacer(QPointF pixels) {
  ajuste_ = false;
  origine_ += pixels / zoom_;
  Disposer();
  update();
}

void VueMotif::paintEvent(QPaintEvent *) {
  QPainter peintre(this);
  peintre.fillRect(rect(), kFond);
  if (!dessin_) return PeindreVide(peintre);
  const qreal d = devicePixelRatioF();
  QImage image((QSizeF(size()) * d).toSize(), QImage::Format_RGB32);
  image.fill(kFond);
  for (const Axe *x : {&fils_, &cote_})
    for (const Axe *y : {&duites_, &tete_}) PeindreVolet(image, *x, *y);
  image.setDevicePixelRatio(d);
  peintre.drawImage(0, 0, image);
  PeindreFilets(peintre);
  PeindreNumeros(peintre);
  PeindreLieu(peintre);
}

// Where patterns are let fall.
void VueMotif::PeindreVide(QPainter &peintre) const {
  const QRectF la = QRectF(rect()).adjusted(24, 24, -24, -24);
  peintre.setRenderHint(QPainter::Antialiasing);
  peintre.setPen(QPen(kFilet, 2, Qt::DashLine));
  peintre.drawRoundedRect(la, 10, 10);
  peintre.setPen(kNombre);
  QFont police = font();
  police.setPixelSize(17);
  peintre.setFont(police);
  peintre.drawText(la.adjusted(12, 12, -12, -12), Qt::AlignCenter | Qt::TextWordWrap,
                   langue_ == Langue::Francais ? QStringLiteral("Déposez ici des motifs, ou Ouvrir.")
                                               : QStringLiteral("Drop patterns here, or Open."));
}

// One field in the pixels of the screen.
void VueMotif::PeindreVolet(QImage &image, const Axe &x, const Axe &y) const {
  if (x.taille < 1 || y.taille < 1) return;
  const double d = devicePixelRatioF();
  if (std::min(x.pas, y.pas) * d >= kPixelsAvecTraits) return PeindreDePres(image, x, y);
  QPainter peintre(&image);
  peintre.scale(d, d);
  peintre.setClipRect(QRectF(x.debut, y.debut, x.taille, y.taille));
  int cellules = 1;
  const QImage &copie = dessin_->copies.Pour(std::min(x.pas, y.pas) * d, cellules);
  // Whole pixels of the copy alone, so that cells keep their edges while the drawing moves.
  const auto premier = [cellules](const Axe &a) {
    return static_cast<int>(std::floor((a.cellule + a.origine) / cellules));
  };
  const auto nombre = [cellules](const Axe &a) {
    return static_cast<int>(std::ceil(a.taille / (a.pas * cellules))) + 2;
  };
  const int gauche = premier(x), haut = premier(y);
  const int largeur = std::min(copie.width() - gauche, nombre(x)),
            hauteur = std::min(copie.height() - haut, nombre(y));
  if (largeur <= 0 || hauteur <= 0) return;
  const QRectF cible(x.Bord(gauche * cellules), y.Bord(haut * cellules), largeur * cellules * x.pas,
                     hauteur * cellules * y.pas);
  peintre.drawImage(cible, copie, QRectF(gauche, haut, largeur, hauteur));
}

// Each cell ends in a line where another thread begins. A row of pixels is made once for a row of cells and
// copied: many times quicker than lines drawn over a picture.
void VueMotif::PeindreDePres(QImage &image, const Axe &x, const Axe &y) const {
  const Planche &p = dessin_->planche;
  const double d = devicePixelRatioF();
  const auto borne = [d](const Axe &a, double pixel, int fin) {
    return std::clamp(static_cast<int>(std::round(std::clamp(pixel, a.debut, a.Fin()) * d)), 0, fin);
  };
  const auto bordX = [&](int c) { return borne(x, x.Bord(c), image.width()); };
  const auto bordY = [&](int c) { return borne(y, y.Bord(c), image.height()); };
  const int gauche = bordX(x.cellule), droite = bordX(x.cellule + x.nombre),
            epais = std::max(1, qRound(d * 0.6));
  std::vector<Case> cases(static_cast<std::size_t>(p.Largeur()));
  std::vector<QRgb> rangee(static_cast<std::size_t>(image.width())), trait(rangee.size());
  const int premiereX = x.cellule + static_cast<int>(x.origine),
            premiereY = y.cellule + static_cast<int>(y.origine);
  for (int r = premiereY; r < y.cellule + y.nombre; ++r) {
    const int haut = bordY(r), bas = bordY(r + 1);
    if (haut >= bas && r > premiereY) break;
    p.Ligne(r, cases.data(), true);
    for (int c = premiereX; c < x.cellule + x.nombre; ++c) {
      const int a = bordX(c), b = bordX(c + 1);
      if (a >= droite) break;
      const Case k = cases[static_cast<std::size_t>(c)];
      const QRgb plein = k & kHors ? kFond.rgb() : 0xFF000000U | CouleurDe(k),
                 ligne = 0xFF000000U | Trait(CouleurDe(k));
      std::fill(rangee.begin() + a, rangee.begin() + b, plein);
      std::fill(trait.begin() + a, trait.begin() + b, k & kTraitBas ? ligne : plein);
      if (k & kTraitDroite) {
        std::fill(rangee.begin() + std::max(a, b - epais), rangee.begin() + b, ligne);
        std::fill(trait.begin() + std::max(a, b - epais), trait.begin() + b, ligne);
      }
    }
    for (int i = haut; i < bas; ++i) {
      const std::vector<QRgb> &source = i >= bas - epais ? trait : rangee;
      std::copy(source.begin() + gauche, source.begin() + droite,
                reinterpret_cast<QRgb *>(image.scanLine(i)) + gauche);
    }
  }
}

// A thin frame about each field, as far as it is in sight.
void VueMotif::PeindreFilets(QPainter &peintre) const {
  peintre.setPen(QPen(kFilet, 1));
  for (const Zone &z : dessin_->planche.Zones()) {
    const Axe &x = z.x >= cote_.cellule ? cote_ : fils_, &y = z.y == duites_.cellule ? duites_ : tete_;
    const double gauche = std::max(x.debut, x.Bord(z.x)), droite = std::min(x.Fin(), x.Bord(z.x + z.largeur)),
                 haut = std::max(y.debut, y.Bord(z.y)), bas = std::min(y.Fin(), y.Bord(z.y + z.hauteur));
    peintre.drawRect(QRectF(gauche, haut, droite - gauche, bas - haut).adjusted(-0.5, -0.5, -0.5, -0.5));
  }
}

void VueMotif::PeindreNumeros(QPainter &peintre) const {
  const Planche &p = dessin_->planche;
  QFont police = font();
  police.setPixelSize(kTexte);
  peintre.setFont(police);
  peintre.setPen(kNombre);
  const QFontMetricsF mesure(police);
  const bool enHaut = p.Reglages().enHaut;
  const double chiffre = mesure.horizontalAdvance(QLatin1Char('0'));
  const auto large = [&](int n) { return chiffre * (static_cast<double>(QString::number(n).size()) + 0.8); };
  const auto centre = [&](double x, double y, int n) {
    peintre.drawText(QRectF(x - 40, y, 80, kDehors), Qt::AlignCenter, QString::number(n));
  };
  const auto dehors = [&](const Axe &a) { return enHaut ? a.debut - kDehors : a.Fin(); };
  const double haut = kTexte * 1.2;
  if (!p.enfilage.Vide()) {
    PourChaqueNumero({1, p.FilsTraces()}, p.Fils().premier, p.NombreFils(),
                     PasNumeros(5, zoom_, large(p.Fils().dernier)), [&](int rang, int n) {
                       const double x = fils_.Bord(p.XFil(rang) + 0.5);
                       if (fils_.Contient(x)) centre(x, dehors(tete_), n);
                     });
    PourChaqueNumero({1, p.enfilage.hauteur}, 1, kLamesMax, PasNumeros(4, tete_.pas, haut),
                     [&](int l, int n) {
                       const double y = tete_.Bord(p.YLame(l) + 0.5);
                       peintre.drawText(QRectF(fils_.debut - kGauche, y - 10, kGauche - 3, 20),
                                        Qt::AlignRight | Qt::AlignVCenter, QString::number(n));
                     });
  }
  // Without a tie-up the numbers of the lifts stand in its empty corner, next to the plan.
  const double yPas = !p.attaches.Vide() ? dehors(tete_) : enHaut ? duites_.debut - kDehors : duites_.Fin();
  PourChaqueNumero({1, p.pas.largeur}, 1, kLamesMax, PasNumeros(4, cote_.pas, large(p.pas.largeur)),
                   [&](int rang, int n) { centre(cote_.Bord(p.pas.x + rang - 0.5), yPas, n); });
  PourChaqueNumero({1, p.DuitesTracees()}, p.Duites().premier, p.NombreDuites(), PasNumeros(5, zoom_, haut),
                   [&](int rang, int n) {
                     const double y = duites_.Bord(p.YDuite(rang) + 0.5);
                     if (duites_.Contient(y))
                       peintre.drawText(QRectF(cote_.Fin() + 4, y - 10, kDroite - 4, 20),
                                        Qt::AlignLeft | Qt::AlignVCenter, QString::number(n));
                   });
}

void VueMotif::PeindreLieu(QPainter &peintre) const {
  const Planche &p = dessin_->planche;
  const auto cadrer = [&](QRectF lieu, QColor couleur) {
    peintre.setPen(QPen(Qt::white, 4));
    peintre.drawRect(lieu.adjusted(-2, -2, 2, 2));
    peintre.setPen(QPen(couleur, 2));
    peintre.drawRect(lieu.adjusted(-2, -2, 2, 2));
  };
  peintre.setBrush(Qt::NoBrush);
  peintre.setClipRect(QRectF(fils_.debut, 0, cote_.Fin() - fils_.debut, height()).adjusted(-4, 0, 4, 0));
  if (lieu_) {
    const Lieu &l = *lieu_;
    double gauche = fils_.debut, droite = l.fil > 0 ? fils_.Fin() : cote_.Fin(),
           haut = std::min(duites_.debut, tete_.debut), bas = std::max(duites_.Fin(), tete_.Fin());
    if (l.fil > 0) {
      gauche = fils_.Bord(p.XFil(std::max(l.fil, l.dernierFil)));
      droite = fils_.Bord(p.XFil(l.fil) + 1);
    }
    const auto cadrerDuites = [&](int premiere, int derniere) {
      const int a = p.YDuite(premiere), b = p.YDuite(derniere);
      haut = duites_.Bord(std::min(a, b));
      bas = duites_.Bord(std::max(a, b) + 1);
      cadrer({gauche, haut, droite - gauche, bas - haut}, QColor(0xC0, 0x30, 0x00));
    };
    if (l.fil == 0 && l.duite == 0) {
      haut = tete_.Bord(p.YLame(l.lame));
      bas = haut + tete_.pas;
      droite = fils_.Fin();
    }
    // Over the seam of the repeat: in one piece where the next repeat is drawn, else at both edges.
    const int fin = std::max(l.duite, l.derniereDuite);
    if (l.duite == 0)
      cadrer({gauche, haut, droite - gauche, bas - haut}, QColor(0xC0, 0x30, 0x00));
    else
      cadrerDuites(l.duite, p.Reglages().reprises > 1 ? fin + l.suite : fin);
    if (l.suite > 0 && p.Reglages().reprises == 1) cadrerDuites(1, l.suite);
  }
  if (curseurDuite_ == 0 || !hasFocus()) return;
  const QRectF la = CaseDe(std::max(curseurFil_, 1), curseurDuite_);
  if (curseurFil_ > 0)
    cadrer(la, QColor(0x00, 0x60, 0xB0));
  else
    cadrer({cote_.debut, la.y(), cote_.taille, la.height()}, QColor(0x00, 0x60, 0xB0));
}

bool VueMotif::SousLePoint(QPointF point, int &rangFil, int &rangDuite) const {
  if (!dessin_) return false;
  const Planche &p = dessin_->planche;
  rangFil = fils_.Contient(point.x()) ? p.RangFil(static_cast<int>(std::floor(fils_.Cellule(point.x())))) : 0;
  rangDuite =
      duites_.Contient(point.y()) ? p.RangDuite(static_cast<int>(std::floor(duites_.Cellule(point.y())))) : 0;
  if (rangFil < 1 || rangFil > p.FilsTraces()) rangFil = 0;
  if (rangDuite < 1 || rangDuite > p.DuitesTracees()) rangDuite = 0;
  return rangFil > 0 || rangDuite > 0;
}

QString VueMotif::Dire(int rangFil, int rangDuite) const {
  const Planche &p = dessin_->planche;
  const Motif &m = *dessin_->motif;
  const bool fr = langue_ == Langue::Francais;
  QStringList mots;
  if (rangFil > 0) {
    const int fil = p.Fil(rangFil);
    mots << (fr ? QStringLiteral("fil %1, lame %2") : QStringLiteral("end %1, harness %2"))
                .arg(fil)
                .arg(QString::fromStdString(ListeLames(m.enfilage[static_cast<std::size_t>(fil - 1)])));
  }
  if (rangDuite > 0) {
    const int duite = p.Duite(rangDuite);
    mots << (fr ? QStringLiteral("duite %1 : %2") : QStringLiteral("pick %1: %2"))
                .arg(duite)
                .arg(QString::fromStdString(ListeLames(m.foules[static_cast<std::size_t>(duite - 1)])));
  }
  return mots.join(QStringLiteral("   "));
}

void VueMotif::wheelEvent(QWheelEvent *evenement) {
  Zoomer(std::pow(1.0015, evenement->angleDelta().y()), evenement->position());
  evenement->accept();
}

void VueMotif::mousePressEvent(QMouseEvent *evenement) {
  if (evenement->button() != Qt::LeftButton) return;
  prise_ = evenement->position();
  setCursor(Qt::ClosedHandCursor);
  int fil = 0, duite = 0;
  if (SousLePoint(prise_, fil, duite) && duite > 0) Pointer(fil, duite);
}

void VueMotif::mouseMoveEvent(QMouseEvent *evenement) {
  if (evenement->buttons() & Qt::LeftButton) {
    Deplacer(prise_ - evenement->position());
    prise_ = evenement->position();
  }
  int fil = 0, duite = 0;
  emit Survole(SousLePoint(evenement->position(), fil, duite) ? Dire(fil, duite) : QString());
}

void VueMotif::mouseReleaseEvent(QMouseEvent *) { unsetCursor(); }

void VueMotif::MettreEnVue(int rangFil, int rangDuite) {
  const auto amener = [this](const Axe &a, int cellule, double &origine) {
    const double vues = a.taille / zoom_, c = cellule - a.cellule;
    if (c < origine || c + 1 > origine + vues) ajuste_ = false;
    origine = std::clamp(origine, c + 1 - vues, c);
  };
  const Planche &p = dessin_->planche;
  double x = origine_.x(), y = origine_.y();
  if (rangFil > 0) amener(fils_, p.XFil(rangFil), x);
  amener(duites_, p.YDuite(rangDuite), y);
  origine_ = {x, y};
  Disposer();
}

void VueMotif::Pointer(int rangFil, int rangDuite) {
  curseurFil_ = rangFil;
  curseurDuite_ = rangDuite;
  const QString texte = Dire(rangFil, rangDuite);
  setAccessibleDescription(texte);
  emit Survole(texte);
  update();
}

// The first step only shows where the cursor is: at the first end and the first pick.
void VueMotif::MenerCurseur(int pasFil, int pasDuite) {
  if (!dessin_) return;
  const Planche &p = dessin_->planche;
  const bool la = curseurDuite_ > 0;
  const auto mener = [la](int rang, int pas, int nombre) {
    return nombre == 0 ? 0 : la ? std::clamp(rang + pas, 1, nombre) : 1;
  };
  Pointer(mener(curseurFil_, pasFil, p.FilsTraces()), mener(curseurDuite_, pasDuite, p.DuitesTracees()));
  MettreEnVue(curseurFil_, curseurDuite_);
}

void VueMotif::keyPressEvent(QKeyEvent *evenement) {
  constexpr int kTous = 1 << 20, kPage = 10;
  const QPointF milieu(width() / 2.0, height() / 2.0);
  const int haut = dessin_ && dessin_->planche.Reglages().enHaut ? -1 : 1;
  const bool ctrl = evenement->modifiers() & Qt::ControlModifier;
  switch (evenement->key()) {
    case Qt::Key_Left:
      return MenerCurseur(1, 0);
    case Qt::Key_Right:
      return MenerCurseur(-1, 0);
    case Qt::Key_Up:
      return MenerCurseur(0, haut);
    case Qt::Key_Down:
      return MenerCurseur(0, -haut);
    case Qt::Key_PageUp:
      return MenerCurseur(0, haut * kPage);
    case Qt::Key_PageDown:
      return MenerCurseur(0, -haut * kPage);
    case Qt::Key_Home:
      return MenerCurseur(ctrl ? 0 : -kTous, ctrl ? -kTous : 0);
    case Qt::Key_End:
      return MenerCurseur(ctrl ? 0 : kTous, ctrl ? kTous : 0);
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return Zoomer(1.25, milieu);
    case Qt::Key_Minus:
      return Zoomer(0.8, milieu);
    case Qt::Key_0:
      return Ajuster();
    default:
      QWidget::keyPressEvent(evenement);
  }
}

void VueMotif::resizeEvent(QResizeEvent *) {
  if (ajuste_) return Ajuster();
  Disposer();
  update();
}
