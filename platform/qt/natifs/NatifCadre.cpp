#include "platform/qt/natifs/NatifCadre.h"

#include <QApplication>
#include <QRegion>
#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <cstdlib>

#include "platform/qt/natifs/Acces.h"
#include "platform/qt/natifs/EcranSansPlace.h"
#include "platform/qt/natifs/TexteNatif.h"

namespace {
constexpr Qt::WindowState kEtats[] = {Qt::WindowNoState, Qt::WindowMinimized, Qt::WindowMaximized};

// Runs in order from top left, those that touch joined: what the toolkit wants of a list of rectangles.
QRegion EnRegion(Region contour) {
  std::sort(contour.begin(), contour.end(), [](const Segment &a, const Segment &b) {
    return std::tie(a.y, a.gauche) < std::tie(b.y, b.gauche);
  });
  std::vector<QRect> bandes;
  for (const Segment &s : contour) {
    if (s.gauche >= s.droite) continue;
    QRect *derniere = bandes.empty() ? nullptr : &bandes.back();
    if (derniere && derniere->top() == s.y && s.gauche <= derniere->right() + 1)
      derniere->setRight(std::max(derniere->right(), s.droite - 1));
    else
      bandes.emplace_back(s.gauche, s.y, s.droite - s.gauche, 1);
  }
  QRegion region;
  region.setRects(bandes.data(), static_cast<int>(bandes.size()));
  return region;
}

QRect PlaceEcran(const Fenetre &f) {
  const auto pixel = [](double twips) { return qRound(twips / kTwipsParPixel); };
  return Pixels(f).translated(pixel(f.DecalageX), pixel(f.DecalageY));
}

int EtatActuel(const QWidget *cadre) {
  if (cadre->isMinimized()) return 1;
  return cadre->isMaximized() ? 2 : 0;
}
}  // namespace

NatifCadre::NatifCadre(PeintDessin *cadre, Fenetre &donnee, bool principale, Guichet &guichet)
    : Natif(cadre, donnee, guichet), cadre_(cadre), principale_(principale) {
  LaisserVoirAutour(*cadre);
  cadre->setAttribute(Qt::WA_ShowWithoutActivating, !principale);
  cadre->setFocus();  // else the first field would have the keyboard
}

void NatifCadre::Modale(bool modale) {
  // The toolkit heeds this only where a window appears.
  if (modale && cadre_->isVisible()) {
    cadre_->hide();
    visible_.Oublier();
  }
  cadre_->setWindowModality(modale ? Qt::ApplicationModal : Qt::NonModal);
  cadre_->setAttribute(Qt::WA_ShowWithoutActivating, !modale && !principale_);
}

void NatifCadre::RefleterGenre() {
  const Fenetre &f = LaFenetre();
  titre_.Suivre(guichet_, f.Caption, [&](const std::string &t) { cadre_->setWindowTitle(Texte(t)); });
  fond_.Suivre(guichet_, f.BackColor, [&](Couleur c) { cadre_->Fond(c); });
  version_.Suivre(guichet_, f.Dessin.Version(), [&](auto) {
    cadre_->Dessin(f.Dessin, guichet_.Images.FinePour(f.Dessin, cadre_->devicePixelRatioF()));
  });
  contour_.Suivre(guichet_, f.Contour, [&](const Region &contour) {
    if (contour.empty())
      cadre_->clearMask();
    else
      cadre_->setMask(EnRegion(contour));
  });
}

void NatifCadre::RefleterPlace() {
  const Fenetre &f = LaFenetre();
  // The shuttle first, by which it can be moved.
  if (principale_ && !cadre_->isVisible()) Defiler(cadre_->screen()->availableGeometry().top());
  place_.Suivre(guichet_, PlaceNative(), [&](const QRect &r) {
    cadre_->setFixedSize(r.size());
    cadre_->move(r.topLeft());
  });
  etat_.Suivre(guichet_, f.WindowState, [&](int etat) {
    if (etat < 0 || etat > 2) return;
    if (etat == 0) cadre_->setWindowState(Qt::WindowNoState);
    if (etatConnu_ || etat != 0) AnnoncerResize();
    etatConnu_ = true;
  });
  visible_.Suivre(guichet_, f.Visible && f.Chargee, [&](bool visible) {
    if (visible)
      Paraitre();
    else
      cadre_->hide();
  });
  if (f.Message)
    mots_.Suivre(guichet_, MotsDuMessage(*cadre_), [&](const QString &m) { AnnoncerTexte(cadre_, m); });
}

QRect NatifCadre::PlaceNative() const { return PlaceEcran(LaFenetre()).translated(0, guichet_.Defilement); }

bool NatifCadre::Defiler(int y) {
  const QRect ecran = cadre_->screen()->availableGeometry(), place = PlaceNative();
  if (place.height() <= ecran.height()) return false;
  int ecart = 0;
  if (y <= ecran.top()) ecart = std::max(0, ecran.top() - place.top());
  if (y >= ecran.bottom()) ecart = std::min(0, ecran.bottom() - place.bottom());
  guichet_.Defilement += ecart;
  return ecart != 0;
}

void NatifCadre::Paraitre() {
  cadre_->show();
  MettreDevant(!cadre_->testAttribute(Qt::WA_ShowWithoutActivating));
}

void NatifCadre::MettreDevant(bool activer) {
  // Activated first: a window manager may raise what it activates, and messages belong above the main window.
  if (activer) {
    QWidget *modale = QApplication::activeModalWidget();
    (modale ? modale : cadre_)->activateWindow();
  }
  cadre_->raise();
  LeverAutres();
}

void NatifCadre::LeverAutres() {
  for (QObject *autre : cadre_->children())
    if (auto *w = qobject_cast<QWidget *>(autre); w && w->isWindow() && w->isVisible()) w->raise();
}

void NatifCadre::AnnoncerResize() {
  // A state set by a procedure has its event too, behind that procedure. The event may hide the window in the
  // notification area: one that was minimised as well would come back minimised.
  QTimer::singleShot(0, cadre_, [this] {
    const Fenetre &f = LaFenetre();
    const auto resize = f.Resize;
    if (resize) guichet_.Passer(resize);
    if (f.Visible && f.WindowState > 0 && f.WindowState <= 2) cadre_->setWindowState(kEtats[f.WindowState]);
  });
}

void NatifCadre::Deplacee() {
  // Rounding at fractional screen scales is no move.
  constexpr int kTolerance = 2;
  Fenetre &f = LaFenetre();
  if (!guichet_.Ouverte() || !cadre_->isVisible() || f.WindowState != 0) return;
  const QRect voulu = PlaceNative();
  const QPoint ecart = cadre_->pos() - voulu.topLeft();
  if (std::abs(ecart.x()) <= kTolerance && std::abs(ecart.y()) <= kTolerance) return;
  f.Left = Twips(cadre_->x()) - f.DecalageX;
  f.Top = Twips(cadre_->y() - guichet_.Defilement) - f.DecalageY;
  place_.Savoir(PlaceNative());
}

void NatifCadre::EtatChange() {
  const int etat = EtatActuel(cadre_);
  if (!guichet_.Ouverte() || etat == LaFenetre().WindowState) return;
  guichet_.Passer([this, etat] {
    LaFenetre().WindowState = etat;
    etat_.Savoir(etat);
    const auto resize = LaFenetre().Resize;
    if (resize) resize();
  });
}
