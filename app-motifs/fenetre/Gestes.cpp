// What the window does when a file comes in or a key is pressed.
#include <QFileDialog>
#include <QInputDialog>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>

#include "app-motifs/Poste.h"
#include "app-motifs/dessin/Dessin.h"
#include "app-motifs/fenetre/DialogueCouleurs.h"
#include "app-motifs/fenetre/DialogueSections.h"
#include "app-motifs/fenetre/FenetreMotifs.h"
#include "app-motifs/fenetre/ListeMotifs.h"
#include "app-motifs/fenetre/Textes.h"
#include "app-motifs/fenetre/VueConstats.h"
#include "app-motifs/fenetre/VueMotif.h"
#include "motifs/Assemblage.h"
#include "motifs/DossierBrandis.h"
#include "motifs/Fichier.h"
#include "motifs/FormeTissable.h"
#include "motifs/LectureMotif.h"
#include "motifs/Ramener.h"

template <class F>
auto FenetreMotifs::Travailler(F faire) {
  return taches_.Faire(this, Selon("Un instant…", "One moment…"), Selon("Annuler", "Cancel"),
                       std::move(faire));
}

void FenetreMotifs::Ouvrir(const QStringList &chemins) {
  struct Lecture {
    QString chemin;
    MotifOuvert motif;
    QImage coupon;
    QString refus;
  };
  const auto lues = Travailler([chemins, langue = langue_] {
    std::vector<Lecture> resultat;
    for (const QString &chemin : chemins) {
      Lecture l{chemin, nullptr, {}, {}};
      try {
        l.motif = std::make_shared<const Motif>(LireMotif(Chemin(QFileInfo(chemin).absoluteFilePath())));
        l.coupon = Coupon(*l.motif);
      } catch (const Refus &r) {
        l.refus = Texte(r.En(langue));
      } catch (const std::exception &e) {
        l.refus = chemin + QStringLiteral(": ") + QString::fromLocal8Bit(e.what());
      }
      resultat.push_back(std::move(l));
    }
    return resultat;
  });
  if (!lues) return;
  QStringList refus;
  int dernier = -1;
  for (const Lecture &l : *lues) {
    if (!l.motif) {
      refus << l.refus;
      continue;
    }
    dossier_ = QFileInfo(l.chemin).absolutePath();
    const auto la = std::find_if(motifs_.begin(), motifs_.end(),
                                 [&](const MotifOuvert &m) { return m->chemin == l.motif->chemin; });
    dernier = static_cast<int>(la - motifs_.begin());
    if (la != motifs_.end()) {
      *la = l.motif;
      Inscrire(*liste_->item(dernier), *l.motif, l.coupon, langue_);
      continue;
    }
    motifs_.push_back(l.motif);
    const QSignalBlocker silence(liste_);
    Inscrire(*new QListWidgetItem(liste_), *l.motif, l.coupon, langue_);
  }
  if (dernier >= 0) {
    const QSignalBlocker silence(liste_);
    liste_->setCurrentRow(dernier);
  }
  MontrerCourant();
  if (!refus.isEmpty()) Refuser(refus.join(QStringLiteral("\n\n")));
}

void FenetreMotifs::MontrerDessin(bool garder) {
  const MotifOuvert motif = Courant();
  if (!motif) return vue_->Montrer(nullptr);
  auto pret = Travailler([motif, reglages = Reglages()] {
    return std::shared_ptr<const DessinPret>(std::make_shared<DessinPret>(motif, reglages));
  });
  vue_->Montrer(pret ? *pret : nullptr, garder);
}

void FenetreMotifs::MontrerConstats() {
  const MotifOuvert motif = Courant();
  if (!motif) {
    const QSignalBlocker silence(constats_);
    return constats_->clear();
  }
  // Findings of another pattern must not stand beside this one.
  const auto constats = Travailler([motif, flotte = flotte_->value()] { return Verifier(*motif, flotte); });
  constats_->Montrer(constats ? *constats
                              : std::vector<Constat>{{Constat::NonJuge,
                                                      false,
                                                      {"annulé : ce motif n'est pas jugé.",
                                                       "called off: this pattern is not judged."}}});
}

void FenetreMotifs::Fermer() {
  const int rang = liste_->currentRow();
  if (rang < 0) return;
  motifs_.erase(motifs_.begin() + rang);
  {
    const QSignalBlocker silence(liste_);
    delete liste_->takeItem(rang);
  }
  MontrerCourant();
}

void FenetreMotifs::ChoisirVue() {
  structure_ = toucheStructure_->isChecked();
  MontrerDessin(true);
}

void FenetreMotifs::Tourner() {
  deuxFois_ = toucheDeux_->isChecked();
  enHaut_ = toucheHaut_->isChecked();
  MontrerDessin(false);
}

template <class F>
void FenetreMotifs::Refusant(F &&faire) {
  try {
    faire();
  } catch (const Refus &r) {
    Refuser(Texte(r.En(langue_)));
  } catch (const std::exception &e) {
    Refuser(QString::fromLocal8Bit(e.what()));
  }
}

template <class F>
bool FenetreMotifs::Ecrire(F &&faire) {
  bool ecrit = false;
  Refusant([&] {
    for (bool remplacer = false;; remplacer = true) {
      try {
        Dire(taches_.Achever(this, Selon("Écriture…", "Writing…"), [&] { return faire(remplacer); }));
        ecrit = true;
        return;
      } catch (const DejaLa &d) {
        if (remplacer) throw;
        const QString question = Selon("%1 existe déjà. Le remplacer ?", "%1 is there already. Replace it?");
        if (QMessageBox::question(this, windowTitle(), question.arg(Texte(d.Chemin())),
                                  QMessageBox::Yes | QMessageBox::No, QMessageBox::No) != QMessageBox::Yes)
          return;
      }
    }
  });
  return ecrit;
}

bool FenetreMotifs::EcrireOctets(const QString &cible, const std::string &octets, const QString &ensuite) {
  return Ecrire([&](bool remplacer) {
    EcrireFichier(Chemin(cible), octets, remplacer);
    return Selon("Enregistré : ", "Saved: ") + cible + ensuite;
  });
}

template <class F>
bool FenetreMotifs::EcrireForme(const QString &cible, F composer, const QString &ensuite) {
  const auto fait = Travailler([composer = std::move(composer), nom = Chemin(cible)] {
    std::string forme = composer();
    std::vector<Constat> fautes = Fautes(ComprendreMotif(forme, nom));
    return std::pair(std::move(forme), std::move(fautes));
  });
  return fait && Malgre(fait->second) && EcrireOctets(cible, fait->first, ensuite);
}

bool FenetreMotifs::Malgre(const std::vector<Constat> &fautes) {
  if (fautes.empty()) return true;
  QString texte;
  for (const Constat &c : fautes) texte += Texte(c.texte.En(langue_)) + QStringLiteral("\n\n");
  QMessageBox boite(QMessageBox::Warning, windowTitle(),
                    texte + Selon("L'écrire quand même ?", "Write it all the same?"),
                    QMessageBox::Yes | QMessageBox::No, this);
  boite.setTextFormat(Qt::PlainText);
  boite.setDefaultButton(QMessageBox::No);
  return boite.exec() == QMessageBox::Yes;
}

QString FenetreMotifs::DemanderCible(const QString &titre, const QString &propose,
                                     const std::vector<Genre> &genres) {
  QFileDialog dialogue(this, titre, dossier_);
  QStringList filtres;
  for (const Genre &g : genres)
    filtres << QStringLiteral("%1 (*%2)").arg(QString::fromLatin1(g.nom), QString::fromLatin1(g.fin));
  dialogue.setAcceptMode(QFileDialog::AcceptSave);
  dialogue.setFileMode(QFileDialog::AnyFile);
  dialogue.setOption(QFileDialog::DontConfirmOverwrite);
  dialogue.setNameFilters(filtres);
  dialogue.selectFile(propose);
  if (dialogue.exec() != QDialog::Accepted || dialogue.selectedFiles().isEmpty()) return {};
  QString cible = dialogue.selectedFiles().constFirst();
  const auto finit = [&](const Genre &g) {
    return cible.endsWith(QString::fromLatin1(g.fin), Qt::CaseInsensitive);
  };
  if (std::none_of(genres.begin(), genres.end(), finit)) {
    const auto choisi = std::max<qsizetype>(0, filtres.indexOf(dialogue.selectedNameFilter()));
    cible += QString::fromLatin1(genres[static_cast<std::size_t>(choisi)].fin);
  }
  dossier_ = QFileInfo(cible).absolutePath();
  return cible;
}

void FenetreMotifs::ChoisirFichiers() {
  const QStringList chemins =
      QFileDialog::getOpenFileNames(this, Selon("Ouvrir des motifs", "Open patterns"), dossier_,
                                    Selon("Motifs (*.wif *.WIF *.Wif);;Tous les fichiers (*)",
                                          "Patterns (*.wif *.WIF *.Wif);;All files (*)"));
  if (!chemins.isEmpty()) Ouvrir(chemins);
}

void FenetreMotifs::MettreDansBrandis() {
  const MotifOuvert motif = Courant();
  if (!motif) return;
  const auto fautes = Travailler([motif] { return Fautes(*motif); });
  if (fautes && Malgre(*fautes))
    Ecrire([&](bool remplacer) {
      return Selon("Dans Brandis : ", "In Brandis: ") +
             Texte(Convertir(*motif, DossierData(dossierExecutable_), remplacer));
    });
}

void FenetreMotifs::EnregistrerImage() {
  const MotifOuvert motif = Courant();
  if (!motif) return;
  const QString cible =
      DemanderCible(Selon("Enregistrer l'image", "Save picture"), QFileInfo(Nom(*motif)).completeBaseName(),
                    {{"PNG", ".png"}, {"SVG", ".svg"}, {"PDF", ".pdf"}});
  if (cible.isEmpty()) return;
  if (cible.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive)) {
    bool choisi = false;
    const double mm = QInputDialog::getDouble(this, Selon("Enregistrer l'image", "Save picture"),
                                              Selon("Millimètres par fil :", "Millimetres a thread:"), cote_,
                                              kCoteMin, kCoteMax, 1, &choisi);
    if (!choisi) return;
    cote_ = mm;
  }
  const ReglagesDessin reglages{Reglages(), cote_};
  Refusant([&] {
    const auto octets = Travailler([motif, nom = Chemin(cible), reglages, langue = langue_] {
      return Dessiner(*motif, nom, reglages, langue);
    });
    if (octets) EcrireOctets(cible, *octets);
  });
}

void FenetreMotifs::EcrireEnfilage() {
  const MotifOuvert motif = Courant();
  if (!motif) return;
  bool choisi = false;
  const int groupe = QInputDialog::getInt(this, Selon("Enfilage", "Threading"),
                                          Selon("Fils à la fois :", "Ends at a time:"), 1, 1, 8, 1, &choisi);
  if (!choisi) return;
  const QString cible = DemanderCible(
      Selon("Enfilage", "Threading"),
      QFileInfo(Nom(*motif)).completeBaseName() + Selon("-enfilage", "-threading"), {{"WIF", ".wif"}});
  if (cible.isEmpty()) return;
  Refusant([&] {
    EcrireForme(cible,
                [motif, groupe, langue = langue_] { return EnfilageTissable(*motif, groupe, langue); });
  });
}

void FenetreMotifs::AssemblerSections() {
  DialogueSections dialogue(motifs_, liste_->currentRow(), langue_, this);
  if (dialogue.exec() != QDialog::Accepted) return;
  const QString cible =
      DemanderCible(Selon("Sections", "Sections"), QStringLiteral("sections"), {{"WIF", ".wif"}});
  if (cible.isEmpty()) return;
  Refusant([&] {
    const std::vector<Piece> pieces = dialogue.Pieces();
    QString ensuite;
    for (const Constat &c : ComparerChaines(pieces))
      ensuite += QStringLiteral("  ") + Texte(c.texte.En(langue_));
    EcrireForme(
        cible, [pieces, separer = dialogue.Separer()] { return Assembler(pieces, separer); }, ensuite);
  });
}

void FenetreMotifs::RamenerLames() {
  const MotifOuvert motif = Courant();
  if (!motif) return;
  Refusant([&] {
    const auto ramene = Travailler([motif] { return Ramener(*motif, kLamesMetier); });
    if (!ramene) return;
    if (!ramene->change)
      return Dire(Selon("Rien à ramener : chaque foule part au métier comme elle est dessinée.",
                        "Nothing to bring in: every shed goes out to the loom as it is drawn."));
    const QString cible = DemanderCible(
        Selon("Ramener", "Bring in"),
        QFileInfo(Nom(*motif)).completeBaseName() + Selon("-ramene", "-brought-in"), {{"WIF", ".wif"}});
    if (cible.isEmpty() || !EcrireForme(cible, [motif, neuf = *ramene] {
          return FormeSurEnfilage(*motif, neuf.enfilage, neuf.foules, neuf.lames);
        }))
      return;
    QString pas;
    for (const Phrase &p : ramene->pas) pas += Texte(p.En(langue_)) + QLatin1Char('\n');
    QMessageBox boite(QMessageBox::Information, windowTitle(), Selon("À renfiler :", "To be threaded anew:"),
                      QMessageBox::Ok, this);
    boite.setInformativeText(
        ramene->pas.size() > 12 ? Selon("%1 déplacements.", "%1 moves.").arg(ramene->pas.size()) : pas);
    if (ramene->pas.size() > 12) boite.setDetailedText(pas);
    boite.exec();
  });
}

void FenetreMotifs::MontrerCouleurs() {
  if (const MotifOuvert motif = Courant()) DialogueCouleurs(*motif, langue_, this).exec();
}

void FenetreMotifs::FaireProjet() {
  const MotifOuvert motif = Courant();
  if (!motif) return;
  const auto fautes = Travailler([motif] { return Fautes(*motif, kLamesPetitMetier); });
  if (fautes && Malgre(*fautes))
    Ecrire([&](bool remplacer) {
      const auto [chemin, ancien] = FaireProjet16(*motif, DossierData(dossierExecutable_), {}, remplacer);
      QString dit = Selon("Projet à 16 lames prêt : Reprendre dans Brandis.",
                          "16-harness project ready: Resume in Brandis.");
      if (!ancien.empty())
        dit += Selon("  L'ancien est gardé : ", "  The earlier one is kept: ") + Texte(ancien);
      return dit;
    });
}
