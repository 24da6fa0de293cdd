// What the window does when a file comes in or a key is pressed.
#include <QFileDialog>
#include <QInputDialog>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QStyle>

#include "app-motifs/Poste.h"
#include "app-motifs/dessin/Dessin.h"
#include "app-motifs/fenetre/DialogueCouleurs.h"
#include "app-motifs/fenetre/DialogueSections.h"
#include "app-motifs/fenetre/FenetreMotifs.h"
#include "app-motifs/fenetre/Textes.h"
#include "app-motifs/fenetre/VueMotif.h"
#include "motifs/Assemblage.h"
#include "motifs/DossierBrandis.h"
#include "motifs/Fichier.h"
#include "motifs/LectureMotif.h"

template <class F>
auto FenetreMotifs::Travailler(F faire) {
  return taches_.Faire(this, Selon("Un instant…", "One moment…"), Selon("Annuler", "Cancel"),
                       std::move(faire));
}

void FenetreMotifs::Ouvrir(const QStringList &chemins) {
  struct Lecture {
    QString chemin;
    MotifOuvert motif;
    QString refus;
  };
  const auto lues = Travailler([chemins, langue = langue_] {
    std::vector<Lecture> resultat;
    for (const QString &chemin : chemins) {
      Lecture l{chemin, nullptr, {}};
      try {
        l.motif = std::make_shared<const Motif>(LireMotif(Chemin(QFileInfo(chemin).absoluteFilePath())));
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
    const QString texte =
        Nom(*l.motif) + (l.motif->titre.empty() ? QString() : QLatin1Char('\n') + Texte(l.motif->titre));
    if (la != motifs_.end()) {
      *la = l.motif;
      liste_->item(dernier)->setText(texte);
      continue;
    }
    motifs_.push_back(l.motif);
    const QSignalBlocker silence(liste_);
    auto *ligne = new QListWidgetItem(texte, liste_);
    ligne->setToolTip(l.chemin);
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
  const QSignalBlocker silence(listeConstats_);
  listeConstats_->clear();
  constats_.clear();
  const MotifOuvert motif = Courant();
  if (!motif) return;
  auto constats = Travailler([motif, flotte = flotte_->value()] { return Verifier(*motif, flotte); });
  if (!constats) return;
  constats_ = std::move(*constats);
  const QIcon faute = style()->standardIcon(QStyle::SP_MessageBoxWarning),
              remarque = style()->standardIcon(QStyle::SP_MessageBoxInformation);
  for (const Constat &c : constats_) {
    auto *ligne = new QListWidgetItem(c.faute ? faute : remarque, Texte(c.texte.En(langue_)), listeConstats_);
    const QString genre = c.faute ? Selon("Faute : ", "Fault: ") : Selon("Remarque : ", "Remark: ");
    ligne->setData(Qt::AccessibleTextRole, genre + ligne->text());
  }
  if (constats_.empty()) {
    auto *ligne = new QListWidgetItem(Selon("Rien à redire.", "Nothing to say."), listeConstats_);
    ligne->setFlags(Qt::ItemIsEnabled);
  }
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
void FenetreMotifs::Ecrire(F &&faire) {
  for (bool remplacer = false;; remplacer = true) {
    try {
      return Dire(faire(remplacer));
    } catch (const DejaLa &d) {
      if (remplacer) return Refuser(Texte(d.En(langue_)));
      const QString question = Selon("%1 existe déjà. Le remplacer ?", "%1 is there already. Replace it?");
      if (QMessageBox::question(this, windowTitle(), question.arg(Texte(d.Chemin())),
                                QMessageBox::Yes | QMessageBox::No, QMessageBox::No) != QMessageBox::Yes)
        return;
    } catch (const Refus &r) {
      return Refuser(Texte(r.En(langue_)));
    } catch (const std::exception &e) {
      return Refuser(QString::fromLocal8Bit(e.what()));
    }
  }
}

void FenetreMotifs::EcrireOctets(const QString &cible, const std::string &octets, const QString &ensuite) {
  Ecrire([&](bool remplacer) {
    EcrireFichier(Chemin(cible), octets, remplacer);
    return Selon("Enregistré : ", "Saved: ") + cible + ensuite;
  });
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
  if (const MotifOuvert motif = Courant())
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
  try {
    const auto octets = Travailler([motif, nom = Chemin(cible), reglages, langue = langue_] {
      return Dessiner(*motif, nom, reglages, langue);
    });
    if (octets) EcrireOctets(cible, *octets);
  } catch (const Refus &r) {
    Refuser(Texte(r.En(langue_)));
  } catch (const std::exception &e) {
    Refuser(QString::fromLocal8Bit(e.what()));
  }
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
  Ecrire([&](bool remplacer) {
    EcrireFichier(Chemin(cible), EnfilageTissable(*motif, groupe, langue_), remplacer);
    return Selon("Enregistré : ", "Saved: ") + cible;
  });
}

void FenetreMotifs::AssemblerSections() {
  DialogueSections dialogue(motifs_, liste_->currentRow(), langue_, this);
  if (dialogue.exec() != QDialog::Accepted) return;
  const QString cible =
      DemanderCible(Selon("Sections", "Sections"), QStringLiteral("sections"), {{"WIF", ".wif"}});
  if (cible.isEmpty()) return;
  Ecrire([&](bool remplacer) {
    const std::vector<Piece> pieces = dialogue.Pieces();
    EcrireFichier(Chemin(cible), Assembler(pieces, dialogue.Separer()), remplacer);
    QString dit = Selon("Enregistré : ", "Saved: ") + cible;
    for (const Constat &c : ComparerChaines(pieces)) dit += QStringLiteral("  ") + Texte(c.texte.En(langue_));
    return dit;
  });
}

void FenetreMotifs::MontrerCouleurs() {
  if (const MotifOuvert motif = Courant()) DialogueCouleurs(*motif, langue_, this).exec();
}

void FenetreMotifs::FaireProjet() {
  if (const MotifOuvert motif = Courant())
    Ecrire([&](bool remplacer) {
      const auto [chemin, ancien] = FaireProjet16(*motif, DossierData(dossierExecutable_), 0, remplacer);
      QString dit = Selon("Projet à 16 lames prêt : Reprendre dans Brandis.",
                          "16-harness project ready: Resume in Brandis.");
      if (!ancien.empty())
        dit += Selon("  L'ancien est gardé : ", "  The earlier one is kept: ") + Texte(ancien);
      return dit;
    });
}
