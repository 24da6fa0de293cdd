#include "saved/FichierConfiguration.h"

#include "kit/FenetreMessageCourt.h"
#include "session/ModuleTissage.h"

namespace {
template <class F>
void Poursuivre(Entier &resultat, F &&etape) {
  try {
    etape();
  } catch (const ErreurExecution &e) {
    resultat = 0;
    AfficherDescription(e);
  }
}
}  // namespace

std::vector<Rubrique> ConfigurationMetier() {
  return AvecLesChamps(
      {RubriqueBooleen(16, session.BullesActives), RubriqueBooleen(18, session.LangueFrancaise)},
      &FicheChamp::dansConfiguration);
}

void LireConfiguration() {
  try {
    const std::string chemin = CheminData(kNomConfiguration);
    LeverLectureSeule(chemin, session.Etat);
    session.Etat = EtatEtape::Echec;
    FichierEnregistrements fichier(chemin, kLongueurConfiguration);
    RepartirEnregistrement(ConfigurationMetier(), fichier.Lire(1));
    session.NombreLames = kLamesDepart;
    session.Etat = EtatEtape::Reussi;
  } catch (const ErreurExecution &e) {
    SignalerErreurFichier(e);
  }
}

void EcrireConfiguration() {
  try {
    const std::string chemin = CheminData(kNomConfiguration);
    LeverLectureSeule(chemin, session.Etat);
    session.Etat = EtatEtape::Echec;
    session.NombreLames = kLamesDepart;
    FichierEnregistrements(chemin, kLongueurConfiguration).Fermer();
    std::string contenu = LireContenu(chemin).value_or("");
    if (contenu.size() < kLongueurConfiguration) contenu.resize(kLongueurConfiguration);
    contenu.replace(0, kLongueurConfiguration,
                    ComposerEnregistrement(ConfigurationMetier(), kLongueurConfiguration));
    RemplacerContenu(chemin, contenu);
    session.Etat = EtatEtape::Reussi;
  } catch (const ErreurExecution &e) {
    SignalerErreurFichier(e);
  }
}

void LeverLectureSeule(const std::string &chemin, Entier &resultat) {
  // A query that fails falls through into the clearing, like a mark that was found.
  bool marque = true;
  Poursuivre(resultat, [&] { marque = EstLectureSeule(chemin); });
  Poursuivre(resultat, [&] { marque = EstLectureSeule(chemin); });
  if (marque) {
    Poursuivre(resultat, [&] { OterLectureSeule(chemin); });
    resultat = EtatEtape::LectureSeuleLevee;
  } else {
    resultat = EtatEtape::Reussi;
  }
}

void SignalerErreurFichier(const ErreurExecution &e) {
  session.MessageErreur = "L'erreur # " + std::to_string(e.Number()) + " a été générée par " + e.Source() +
                          "\r" + e.Description();
  AfficherMessageCourt(TitreErreur(), session.MessageErreur);
  session.Etat = EtatEtape::Echec;
}

std::string CheminData(const std::string &nom) {
  CalculerCheminApplication();
  return session.CheminApplication + kData + "/" + nom;
}
