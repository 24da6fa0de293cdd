// Boxes, pictures, labels, outlines and the draft.
#include <QLabel>
#include <algorithm>
#include <optional>
#include <tuple>

#include "platform/qt/natifs/Natif.h"
#include "platform/qt/natifs/Peints.h"
#include "platform/qt/natifs/TexteNatif.h"
#include "session/FenetreTissagePrincipale.h"

namespace {
class NatifBoite : public Natif {
 public:
  NatifBoite(PeintDessin *peint, BoitePicture &donnee, Guichet &guichet)
      : Natif(peint, donnee, guichet), peint_(peint) {}

 protected:
  void RefleterGenre() override {
    const auto &boite = Donnee<BoitePicture>();
    fond_.Suivre(guichet_, boite.BackColor, [&](Couleur c) { peint_->Fond(c); });
    version_.Suivre(guichet_, boite.Dessin.Version(), [&](auto) {
      const double echelle = peint_->devicePixelRatioF();
      peint_->Dessin(boite.Dessin, guichet_.Images.FinePour(boite.Dessin, echelle));
      peint_->Pose(guichet_.Images.FineDessin(boite.DessinPose, echelle), {boite.PoseX, boite.PoseY});
    });
  }

 private:
  PeintDessin *peint_;
  Montre<Couleur> fond_;
  Montre<std::uint64_t> version_;
};

class NatifGrille : public NatifBoite {
 public:
  NatifGrille(PeintGrille *peint, PanneauGrille &donnee, Guichet &guichet)
      : NatifBoite(peint, donnee, guichet), grille_(peint) {}

 protected:
  void RefleterGenre() override {
    NatifBoite::RefleterGenre();
    cases_.Suivre(guichet_, Releve(), [&](const PeintGrille::Cases &cases) {
      const bool vide =
          std::all_of(cases.begin(), cases.end(), [](auto c) { return c == PeintGrille::kCachee; });
      if (!meublee_ && !vide) Meubler();
      grille_->Montrer(cases);
    });
  }

 private:
  // Each cell of the data with its rank in the tables of the widget.
  template <class F>
  void Parcourir(F &&f) const {
    const auto &grille = static_cast<const PanneauGrille &>(Natif::Donnee());
    std::size_t i = 0;
    for (int r = 1; r <= grille.PicPourImage.Dernier(); ++r)
      for (int j = 1; j <= kLames; ++j) f(i++, grille.PicPourImage[r][j]);
  }

  PeintGrille::Cases Releve() const {
    PeintGrille::Cases releve;
    Parcourir([&](std::size_t i, const CaseDuite &c) {
      releve[i] = c.Visible ? static_cast<signed char>(c.Picture) : PeintGrille::kCachee;
    });
    return releve;
  }

  void Meubler() {
    PeintGrille::Places places;
    Parcourir(
        [&](std::size_t i, const CaseDuite &c) { places[i] = Pixels(c.Left, c.Top, c.Width, c.Height); });
    // In the order of ImageCase.
    grille_->Meubler({guichet_.Images.Nommee("PicBlanc"), guichet_.Images.Nommee("PicNoir"),
                      guichet_.Images.Nommee("PicRouge")},
                     places);
    meublee_ = true;
  }

  PeintGrille *grille_;
  Montre<PeintGrille::Cases> cases_;
  bool meublee_ = false;
};

class NatifImage : public Natif {
 public:
  NatifImage(PeintImage *peint, Image &donnee, Guichet &guichet)
      : Natif(peint, donnee, guichet), peint_(peint) {}

 protected:
  void RefleterGenre() override {
    picture_.Suivre(guichet_, Donnee<Image>().Picture,
                    [&](const std::string &nom) { peint_->Picture(LaPicture(nom)); });
  }

 private:
  QImage LaPicture(const std::string &nom) const {
    if (nom.empty()) return {};
    if (const QImage fine = guichet_.Images.Fine(nom, peint_->devicePixelRatioF()); !fine.isNull())
      return fine;
    return Donnee<Image>().Facultative ? guichet_.Images.SiTrouvee(nom) : guichet_.Images.Nommee(nom);
  }
  PeintImage *peint_;
  Montre<std::string> picture_;
};

class NatifForme : public Natif {
 public:
  NatifForme(PeintForme *peint, Forme &donnee, Guichet &guichet)
      : Natif(peint, donnee, guichet), peint_(peint) {}

 protected:
  void RefleterGenre() override {
    const auto &forme = Donnee<Forme>();
    bord_.Suivre(guichet_, std::tie(forme.BorderColor, forme.BorderWidth),
                 [&](const auto &) { peint_->Bord(forme.BorderColor, forme.BorderWidth); });
  }

 private:
  PeintForme *peint_;
  Montre<std::tuple<Couleur, int>> bord_;
};

class NatifEtiquette : public Natif {
 public:
  NatifEtiquette(PeintEtiquette *label, Etiquette &donnee, Guichet &guichet)
      : Natif(label, donnee, guichet), label_(label) {
    label_->setTextFormat(Qt::PlainText);
    label_->setMargin(0);
    label_->setIndent(0);
    // The toolkit tells of each new text of a label without a name: twenty rows a pick would drown the news.
    label_->setAccessibleName(QStringLiteral("-"));
  }

 protected:
  void RefleterGenre() override {
    const auto &e = Donnee<Etiquette>();
    const auto etat = std::tie(e.Font, e.Caption, e.ForeColor, e.Alignment, e.Abreger, e.Cerne, e.Plaque,
                               e.Agrandi, e.Serre, e.Width, e.Height);
    if (vue_ && *vue_ == etat) return;  // before any letter is measured
    vue_.emplace(etat);
    const QSize taille = Pixels(e).size();
    const bool ajuste = e.Agrandi || e.Serre;
    fonte_.Suivre(guichet_, {e.Font, ajuste ? e.Caption : "", ajuste ? taille.width() : 0},
                  [&](const auto &) { label_->setFont(Ajustee(e, taille)); });
    couleur_.Suivre(guichet_, e.ForeColor, [&](Couleur c) {
      QPalette palette = label_->palette();
      palette.setColor(QPalette::WindowText, Teinte(c));
      label_->setPalette(palette);
    });
    lignes_ = 1 + static_cast<int>(Texte(e.Caption).count(u'\n'));
    cerne_.Suivre(guichet_, e.Cerne, [&](bool cerne) { label_->Cerne(cerne); });
    plaque_.Suivre(guichet_, e.Plaque, [&](bool plaque) {
      label_->Plaque(plaque);
      label_->setContentsMargins(Debordante() ? kBordPlaque : QMargins());
    });
    // Half of all labels start empty: their type is not to be loaded for that.
    const bool plusieurs = !e.Caption.empty() && taille.height() >= 2 * label_->fontMetrics().height();
    forme_.Suivre(guichet_, {e.Alignment, plusieurs}, [&](const auto &) { Aligner(e, plusieurs); });
    texte_.Suivre(guichet_, {e.Caption, e.Abreger, e.Abreger ? taille.width() : 0, e.Font},
                  [&](const auto &) { Ecrire(Texte(e.Caption), e.Abreger, taille.width()); });
  }

  // A text that breaks its own lines shows them all; a label has no ground that could cover anything.
  QRect Rectangle() const override {
    QRect place = Natif::Rectangle();
    if (lignes_ > 1) place.setHeight(std::max(place.height(), lignes_ * label_->fontMetrics().lineSpacing()));
    return Debordante() ? place.marginsAdded(kBordPlaque) : place;
  }

 private:
  static constexpr QMargins kBordPlaque{5, 3, 5, 3};
  // A plate stands out around its text, but for the label that the type fills.
  bool Debordante() const {
    const auto &e = Donnee<Etiquette>();
    return e.Plaque && !e.Agrandi;
  }

  static QFont Ajustee(const Etiquette &e, QSize taille) {
    QFont fonte = Fonte(e.Font);
    const QString texte = Texte(e.Caption);
    if (texte.isEmpty()) return fonte;
    const int place = std::max(1, taille.width() - (e.Plaque ? 4 : 0));
    if (e.Agrandi) fonte = Agrandie(fonte, texte, place, taille.height() - 2);
    const int largeur = e.Serre ? QFontMetrics(fonte).horizontalAdvance(texte) : 0;
    if (largeur > place) fonte.setStretch(std::max(1, 100 * place / largeur));
    return fonte;
  }

  // A number has nothing below its line, so its digits may fill the label but for a pixel above and below.
  static QFont Agrandie(QFont fonte, const QString &texte, int largeur, int hauteur) {
    for (QFont essai = fonte;; fonte = essai) {
      essai.setPixelSize(fonte.pixelSize() + 1);
      const QFontMetrics mesures(essai);
      if (mesures.capHeight() > hauteur || mesures.horizontalAdvance(texte) > largeur) return fonte;
    }
  }

  void Aligner(const Etiquette &e, bool plusieurs) {
    const Qt::Alignment cote = e.Alignment == Alignement::Centre ? Qt::AlignHCenter : Qt::AlignLeft;
    label_->setAlignment(cote | (e.Agrandi ? Qt::AlignVCenter : Qt::AlignTop));
    label_->setWordWrap(plusieurs);
  }

  void Ecrire(const QString &entier, bool abreger, int largeur) {
    const QString court =
        abreger ? label_->fontMetrics().elidedText(entier, Qt::ElideMiddle, largeur) : entier;
    label_->setText(court);
    label_->setToolTip(court == entier ? QString() : entier);
  }

  PeintEtiquette *label_;
  int lignes_ = 1;
  std::optional<
      std::tuple<Police, std::string, Couleur, Alignement, bool, bool, bool, bool, bool, double, double>>
      vue_;
  Montre<std::tuple<Police, std::string, int>> fonte_;
  Montre<Couleur> couleur_;
  Montre<bool> cerne_, plaque_;
  Montre<std::tuple<Alignement, bool>> forme_;
  Montre<std::tuple<std::string, bool, int, Police>> texte_;
};
}  // namespace

std::unique_ptr<Natif> CreerNatifPeint(Controle &donnee, QWidget *parent, Guichet &guichet) {
  if (auto *grille = dynamic_cast<PanneauGrille *>(&donnee))
    return std::make_unique<NatifGrille>(new PeintGrille(parent), *grille, guichet);
  switch (donnee.genre()) {
    case Genre::Image:
      return std::make_unique<NatifImage>(new PeintImage(parent), static_cast<Image &>(donnee), guichet);
    case Genre::Etiquette:
      return std::make_unique<NatifEtiquette>(new PeintEtiquette(parent), static_cast<Etiquette &>(donnee),
                                              guichet);
    case Genre::Forme:
      return std::make_unique<NatifForme>(new PeintForme(parent), static_cast<Forme &>(donnee), guichet);
    default:
      return std::make_unique<NatifBoite>(new PeintDessin(parent), static_cast<BoitePicture &>(donnee),
                                          guichet);
  }
}
