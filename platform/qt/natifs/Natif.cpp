#include "platform/qt/natifs/Natif.h"

#include <QAccessible>
#include <QCursor>
#include <QPixmap>
#include <QVariant>

#include "platform/qt/natifs/Acces.h"
#include "platform/qt/natifs/TexteNatif.h"

namespace {
constexpr const char *kPropriete = "natif";

// Where each pointer points, in pixels of its picture.
QPoint PointChaud(const std::string &image) {
  if (image == "CurseurMain") return {10, 2};  // the fingertip
  if (image == "CurseurBarre") return {15, 15};
  return {1, 1};
}
}  // namespace

Natif::Natif(QWidget *widget, Controle &donnee, Guichet &guichet)
    : guichet_(guichet), widget_(widget), donnee_(&donnee) {
  if (!widget_->isWindow()) widget_->hide();
  // What a widget is by itself; the first word about names makes the toolkit load what serves them.
  pointeur_.Savoir({kPointeurDefaut, ""});
  nomAccessible_.Savoir("");
  descriptionAccessible_.Savoir("");
  widget_->setProperty(kPropriete, QVariant::fromValue(static_cast<void *>(this)));
}

bool Natif::Bouton() const {
  const Genre genre = donnee_->genre();
  const bool lien = genre == Genre::Etiquette && donnee_->MouseMove;  // a label that answers the pointer
  return donnee_->Click && (genre == Genre::Boite || genre == Genre::Image || lien);
}

void Natif::Refleter() {
  RefleterGenre();
  RefleterPointeur();
  RefleterFocus();
  RefleterAcces();
  RefleterPlace();
}

QRect Natif::Rectangle() const { return Pixels(*donnee_); }

void Natif::RefleterPlace() {
  place_.Suivre(guichet_, Rectangle(), [&](const QRect &r) { widget_->setGeometry(r); });
  visible_.Suivre(guichet_, donnee_->Visible, [&](bool visible) {
    if (visible)
      widget_->show();
    else
      Cacher();
  });
}

void Natif::Cacher() {
  // Else the toolkit would hand the keyboard to some field that the weaver did not choose.
  QWidget *focus = widget_->window()->focusWidget();
  if (focus && (focus == widget_ || widget_->isAncestorOf(focus))) widget_->window()->setFocus();
  widget_->hide();
  visible_.Savoir(false);
}

void Natif::RefleterPointeur() {
  pointeur_.Suivre(guichet_, std::tie(donnee_->MousePointer, donnee_->MouseIcon), [&](const auto &voulu) {
    const auto &[forme, image] = voulu;
    if (forme == kPointeurDeplacer)
      widget_->setCursor(Qt::SizeAllCursor);
    else if (forme == kPointeurPerso && !image.empty())
      widget_->setCursor(QCursor(QPixmap::fromImage(guichet_.Images.Nommee(image)), PointChaud(image).x(),
                                 PointChaud(image).y()));
    else
      widget_->unsetCursor();
  });
}

void Natif::RefleterFocus() {
  if (!Saisie())
    bouton_.Suivre(guichet_, Bouton() || donnee_->Annonce,
                   [&](bool oui) { widget_->setFocusPolicy(oui ? Qt::TabFocus : Qt::NoFocus); });
}

// A painted widget is asked for its name by those who want it; who listens is told of a change.
void Natif::RefleterAcces() {
  const auto annoncer = [&](QAccessible::Event genre) {
    if (!QAccessible::isActive()) return;
    QAccessibleEvent evenement(widget_, genre);
    QAccessible::updateAccessibility(&evenement);
  };
  enMarche_.Suivre(guichet_, donnee_->EnMarche, [&](const auto &) { AnnoncerMarche(widget_); });
  nomAccessible_.Suivre(guichet_, donnee_->NomAccessible, [&](const std::string &nom) {
    if (Saisie())
      widget_->setAccessibleName(Texte(nom));
    else
      annoncer(QAccessible::NameChanged);
    if (donnee_->Annonce && !nom.empty()) AnnoncerTexte(widget_, Texte(nom));
  });
  descriptionAccessible_.Suivre(guichet_, donnee_->DescriptionAccessible,
                                [&](const std::string &) { annoncer(QAccessible::DescriptionChanged); });
}

Natif *Natif::De(const QWidget &widget) {
  return static_cast<Natif *>(widget.property(kPropriete).value<void *>());
}

void Natif::Presser() {
  guichet_.AuClavier = widget_;
  const auto clic = donnee_->Click;
  if (clic) guichet_.Passer(clic);
}

std::unique_ptr<Natif> CreerNatif(Controle &donnee, QWidget *parent, Guichet &guichet) {
  switch (donnee.genre()) {
    case Genre::Texte:
    case Genre::Liste:
    case Genre::Case:
      return CreerNatifSaisie(donnee, parent, guichet);
    default:
      return CreerNatifPeint(donnee, parent, guichet);
  }
}
