// Text fields, list fields and check boxes: what the weaver enters is written into the data.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QTextBlock>
#include <QValidator>
#include <algorithm>

#include "controls/Palette.h"
#include "platform/qt/natifs/Natif.h"
#include "platform/qt/natifs/TexteNatif.h"

namespace {
// What both kinds of text field share.
class NatifTexte : public Natif {
 public:
  using Natif::Natif;
  bool Saisie() const override { return true; }
  bool Ecriture() const override { return true; }

 protected:
  using Selection = std::tuple<int, int>;
  virtual void PoserTexte(const QString &texte) = 0;
  virtual void PoserSelection(int debut, int longueur) = 0;
  virtual QString TexteNatifActuel() const = 0;
  virtual Selection SelectionActuelle() const = 0;

  void RefleterGenre() override {
    const auto &zone = Donnee<ZoneTexte>();
    texte_.Suivre(guichet_, zone.Text, [&](const std::string &t) {
      PoserTexte(Texte(t));
      selection_.Oublier();  // a new text moves the cursor
    });
    selection_.Suivre(guichet_, {zone.SelStart, zone.SelLength},
                      [&](const Selection &) { PoserSelection(zone.SelStart, zone.SelLength); });
  }

  // The weaver typed, pasted or erased.
  void Saisi() {
    guichet_.Passer([this] {
      auto &zone = Donnee<ZoneTexte>();
      zone.Text = Octets(TexteNatifActuel());
      texte_.Savoir(zone.Text);
      LireSelection();
    });
  }

  void Deplace() {
    if (guichet_.Ouverte()) LireSelection();
  }

 private:
  void LireSelection() {
    auto &zone = Donnee<ZoneTexte>();
    const Selection actuelle = SelectionActuelle();
    std::tie(zone.SelStart, zone.SelLength) = actuelle;
    selection_.Savoir(actuelle);
  }

  Montre<std::string> texte_;
  Montre<Selection> selection_;
};

// The key filter of a field, for all that comes in past its keys: pasted, dropped, from the middle button.
class FiltreSaisie : public QValidator {
 public:
  FiltreSaisie(QLineEdit *ligne, const Natif &natif, const Guichet &guichet)
      : QValidator(ligne), natif_(natif), guichet_(guichet) {}
  State validate(QString &texte, int &place) const override {
    const auto filtre = natif_.Donnee().KeyPress;
    if (!filtre || !guichet_.Ouverte()) return Acceptable;  // what the program writes stands as it is
    place = static_cast<int>(Filtre(filtre, texte.left(place)).size());
    texte = Filtre(filtre, texte);
    return Acceptable;
  }

 private:
  const Natif &natif_;
  const Guichet &guichet_;
};

class NatifLigne : public NatifTexte {
 public:
  NatifLigne(QLineEdit *ligne, ZoneTexte &donnee, Guichet &guichet)
      : NatifTexte(ligne, donnee, guichet), ligne_(ligne) {
    ligne->setValidator(new FiltreSaisie(ligne, *this, guichet));
    QObject::connect(ligne, &QLineEdit::textEdited, ligne, [this] { Saisi(); });
    QObject::connect(ligne, &QLineEdit::cursorPositionChanged, ligne, [this] { Deplace(); });
    QObject::connect(ligne, &QLineEdit::selectionChanged, ligne, [this] { Deplace(); });
  }

 protected:
  void PoserTexte(const QString &texte) override { ligne_->setText(texte); }
  void PoserSelection(int debut, int longueur) override {
    if (longueur > 0)
      ligne_->setSelection(debut, longueur);
    else
      ligne_->setCursorPosition(debut);
  }
  QString TexteNatifActuel() const override { return ligne_->text(); }
  Selection SelectionActuelle() const override {
    if (ligne_->hasSelectedText()) return {ligne_->selectionStart(), ligne_->selectionLength()};
    return {ligne_->cursorPosition(), 0};
  }

 private:
  QLineEdit *ligne_;
};

// A slip of ruled paper that lies on the loom. Its scroll bar stands within its edge.
class SaisieLongue : public QPlainTextEdit {
 public:
  explicit SaisieLongue(QWidget *parent) : QPlainTextEdit(parent) {
    setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    setLineWidth(kBord);
    document()->setDocumentMargin(0);
    setViewportMargins(kMarge, 1, kBord, 0);
    QObject::connect(this, &QPlainTextEdit::textChanged, this, [this] { MontrerBarre(); });
    MontrerBarre();
  }

 protected:
  bool event(QEvent *e) override {
    if (e->type() != QEvent::Paint) return QPlainTextEdit::event(e);
    QPainter p(this);
    p.fillRect(rect(), Teinte(Palette::BoisBrun));
    p.fillRect(rect().adjusted(1, 1, -1, -1), Teinte(Palette::Papier));
    p.fillRect(QRect(1, height() - 3, width() - 2, 2), Teinte(Palette::BoisBlond));
    p.fillRect(QRect(width() - 3, 1, 2, height() - 2), Teinte(Palette::BoisBlond));
    p.fillRect(QRect(kMarge - 4, 1, 1, height() - 4), Teinte(Palette::Brique));
    return true;
  }
  void paintEvent(QPaintEvent *e) override {
    QPainter p(viewport());
    p.setPen(Teinte(Palette::PapierLigne));
    const QTextBlock premier = document()->firstBlock();
    const int pas =
        std::max(1, qRound(blockBoundingRect(premier).height() / std::max(1, premier.lineCount())));
    for (int y = pas - 1; y < viewport()->height() - 1; y += pas) p.drawLine(0, y, viewport()->width(), y);
    p.end();
    QPlainTextEdit::paintEvent(e);
  }

 private:
  // The line end behind the last line needs no bar.
  void MontrerBarre() {
    const bool vide = document()->lastBlock().length() == 1;
    const int lignes = document()->blockCount() - (vide ? 1 : 0);
    setVerticalScrollBarPolicy(lignes > kLignes ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
  }

  static constexpr int kBord = 3, kMarge = 14;  // pixels
  static constexpr int kLignes = 4;             // that the slip of the answers holds
};

class NatifBloc : public NatifTexte {
 public:
  NatifBloc(QPlainTextEdit *bloc, ZoneTexte &donnee, Guichet &guichet)
      : NatifTexte(bloc, donnee, guichet), bloc_(bloc) {
    bloc->setTabChangesFocus(true);
    bloc->viewport()->setMouseTracking(true);
    // This one also comes of setters; the gate drops it then.
    QObject::connect(bloc, &QPlainTextEdit::textChanged, bloc, [this] { Saisi(); });
    QObject::connect(bloc, &QPlainTextEdit::cursorPositionChanged, bloc, [this] { Deplace(); });
    QObject::connect(bloc, &QPlainTextEdit::selectionChanged, bloc, [this] { Deplace(); });
  }
  std::vector<QWidget *> Sources() const override { return {bloc_, bloc_->viewport()}; }

 protected:
  void PoserTexte(const QString &texte) override { bloc_->setPlainText(texte); }
  void PoserSelection(int debut, int longueur) override {
    const int fin = bloc_->document()->characterCount() - 1;
    QTextCursor curseur = bloc_->textCursor();
    curseur.setPosition(std::clamp(debut, 0, fin));
    curseur.setPosition(std::clamp(debut + longueur, 0, fin), QTextCursor::KeepAnchor);
    bloc_->setTextCursor(curseur);
    bloc_->ensureCursorVisible();
  }
  // The system's own line ends are CR LF.
  QString TexteNatifActuel() const override { return bloc_->toPlainText().replace(u'\n', u"\r\n"_qs); }
  Selection SelectionActuelle() const override {
    const QTextCursor curseur = bloc_->textCursor();
    return {curseur.selectionStart(), curseur.selectionEnd() - curseur.selectionStart()};
  }

 private:
  QPlainTextEdit *bloc_;
};

// A list whose text stands whole between the frame and the arrow, narrower where it must be.
class ListeNative : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  void paintEvent(QPaintEvent *e) override {
    if (isEditable()) return QComboBox::paintEvent(e);
    constexpr int kMarge = 5, kFleche = 17;  // pixels
    QStylePainter p(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QString texte = option.currentText.isEmpty() ? placeholderText() : option.currentText;
    option.currentText.clear();
    p.drawComplexControl(QStyle::CC_ComboBox, option);
    const QRect place = rect().adjusted(kMarge, 0, -kFleche, 0);
    QFont fonte = font();
    const int largeur = QFontMetrics(fonte).horizontalAdvance(texte);
    if (largeur > place.width()) fonte.setStretch(std::max(60, 100 * place.width() / largeur));
    p.setFont(fonte);
    p.setPen(palette().color(QPalette::Text));
    p.drawText(place, Qt::AlignVCenter | Qt::AlignLeft, texte);
  }
};

class NatifListe : public Natif {
 public:
  NatifListe(QComboBox *combo, ListeChoix &donnee, Guichet &guichet)
      : Natif(combo, donnee, guichet), combo_(combo) {
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMaxVisibleItems(14);
    if (donnee.Saisie) OuvrirSaisie();
    QObject::connect(combo, &QComboBox::activated, combo, [this](int rang) { Choisi(rang); });
  }
  bool Saisie() const override { return true; }
  bool Ecriture() const override { return combo_->isEditable(); }
  bool ClicPropre() const override { return true; }
  std::vector<QWidget *> Sources() const override {
    if (combo_->isEditable()) return {combo_, combo_->lineEdit()};
    return {combo_};
  }

 protected:
  void RefleterGenre() override {
    const auto &liste = Donnee<ListeChoix>();
    liste_.Suivre(guichet_, liste.Liste, [&](const std::vector<std::string> &elements) {
      Remplir(elements);
      texte_.Oublier();
    });
    texte_.Suivre(guichet_, liste.Text, [&](const std::string &t) { Montrer(t, liste.Liste); });
  }

 private:
  void OuvrirSaisie() {
    combo_->setEditable(true);
    combo_->setCompleter(nullptr);  // it would finish the weaver's number for him
    combo_->lineEdit()->setMouseTracking(true);
    QObject::connect(combo_->lineEdit(), &QLineEdit::textEdited, combo_,
                     [this](const QString &t) { Entrer(Octets(t)); });
  }

  void Remplir(const std::vector<std::string> &elements) {
    QStringList textes;
    textes.reserve(static_cast<qsizetype>(elements.size()));
    for (const std::string &e : elements) textes << Texte(e);
    combo_->clear();
    combo_->addItems(textes);
  }

  // A text that is not in the list is shown all the same.
  void Montrer(const std::string &texte, const std::vector<std::string> &elements) {
    const auto place = std::find(elements.begin(), elements.end(), texte);
    const bool absent = place == elements.end();
    // First the placeholder: emptying it makes the toolkit choose an item.
    if (!combo_->isEditable()) combo_->setPlaceholderText(absent ? Texte(texte) : QString());
    combo_->setCurrentIndex(absent ? -1 : static_cast<int>(place - elements.begin()));
    if (combo_->isEditable() && combo_->currentText() != Texte(texte)) combo_->setEditText(Texte(texte));
  }

  void Choisi(int rang) {
    if (!guichet_.Ouverte()) return;
    const auto &elements = Donnee<ListeChoix>().Liste;
    if (rang >= 0 && static_cast<std::size_t>(rang) < elements.size())
      Entrer(elements[static_cast<std::size_t>(rang)]);
  }

  void Entrer(const std::string &texte) {
    guichet_.Passer([this, texte] {
      auto &liste = Donnee<ListeChoix>();
      liste.Text = texte;
      texte_.Savoir(texte);
      const auto clic = liste.Click;
      if (clic) clic();
    });
  }

  QComboBox *combo_;
  Montre<std::vector<std::string>> liste_;
  Montre<std::string> texte_;
};

// A check box that fills the place it is given, mark and all.
class CaseNative : public QCheckBox {
 public:
  using QCheckBox::QCheckBox;

 protected:
  bool hitButton(const QPoint &place) const override { return rect().contains(place); }
  void paintEvent(QPaintEvent *) override {
    QPainter p(this);
    const QRectF cadre = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPen bord(Teinte(hasFocus() ? Palette::Orange : Palette::Encre),
              qRound((hasFocus() ? 2 : 1) * devicePixelRatioF()));
    bord.setCosmetic(true);  // as thick on every side, where a pixel is not a whole number of the screen's
    p.setPen(bord);
    p.setBrush(isDown() ? Teinte(Palette::EtainPente) : QColor(Qt::white));
    p.drawRect(cadre);
    if (!isChecked()) return;
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(Teinte(Palette::VertVif), 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    auto point = [&](double x, double y) {
      return QPointF(cadre.left() + x * cadre.width(), cadre.top() + y * cadre.height());
    };
    const QPointF coche[] = {point(0.22, 0.52), point(0.43, 0.75), point(0.80, 0.24)};
    p.setBrush(Qt::NoBrush);
    p.drawPolyline(coche, 3);
  }
};

class NatifCase : public Natif {
 public:
  NatifCase(CaseNative *coche, CaseCochee &donnee, Guichet &guichet)
      : Natif(coche, donnee, guichet), case_(coche) {
    QObject::connect(coche, &QCheckBox::clicked, coche, [this](bool valeur) {
      guichet_.Passer([this, valeur] {
        auto &c = Donnee<CaseCochee>();
        c.Value = valeur;
        valeur_.Savoir(valeur);
        const auto clic = c.Click;
        if (clic) clic();
      });
    });
  }
  bool Saisie() const override { return true; }
  bool ClicPropre() const override { return true; }

 protected:
  void RefleterGenre() override {
    valeur_.Suivre(guichet_, Donnee<CaseCochee>().Value, [&](bool v) { case_->setChecked(v); });
  }

 private:
  CaseNative *case_;
  Montre<bool> valeur_;
};

template <class W>
W *Vetu(QWidget *parent) {
  W *champ = new W(parent);
  champ->setFont(Fonte(Police{}));
  champ->setFocusPolicy(Qt::StrongFocus);  // not by the wheel
  return champ;
}
}  // namespace

std::unique_ptr<Natif> CreerNatifSaisie(Controle &donnee, QWidget *parent, Guichet &guichet) {
  if (donnee.genre() == Genre::Liste)
    return std::make_unique<NatifListe>(Vetu<ListeNative>(parent), static_cast<ListeChoix &>(donnee),
                                        guichet);
  if (donnee.genre() == Genre::Case)
    return std::make_unique<NatifCase>(Vetu<CaseNative>(parent), static_cast<CaseCochee &>(donnee), guichet);
  auto &zone = static_cast<ZoneTexte &>(donnee);
  if (zone.Multiligne) return std::make_unique<NatifBloc>(Vetu<SaisieLongue>(parent), zone, guichet);
  return std::make_unique<NatifLigne>(Vetu<QLineEdit>(parent), zone, guichet);
}
