#include "platform/qt/Avance.h"

#include <fontconfig/fontconfig.h>
#include <sys/resource.h>

#include <QFontDatabase>

#include "platform/qt/TexteNatif.h"

namespace {
// The family that the desktop has for Arial, asked for once: the toolkit would look for it at every size and
// weight.
QString FamillePourArial() {
  FcPattern *voulue = FcPatternCreate();
  FcPatternAddString(voulue, FC_FAMILY, reinterpret_cast<const FcChar8 *>("Arial"));
  FcConfigSubstitute(nullptr, voulue, FcMatchPattern);
  FcDefaultSubstitute(voulue);
  FcResult resultat;
  FcPattern *trouvee = FcFontMatch(nullptr, voulue, &resultat);
  FcChar8 *nom = nullptr;
  QString famille;
  if (trouvee && FcPatternGetString(trouvee, FC_FAMILY, 0, &nom) == FcResultMatch)
    famille = QString::fromUtf8(reinterpret_cast<const char *>(nom));
  if (trouvee) FcPatternDestroy(trouvee);
  FcPatternDestroy(voulue);
  return famille;
}

// Behind the opening of the display, where there are not cores enough for both.
void EnRetrait() { setpriority(PRIO_PROCESS, 0, 10); }
}  // namespace

Avance::Avance(const std::vector<std::string> &dossiers)
    : polices_([this] {
        EnRetrait();
        FcInit();
        famille_ = FamillePourArial();
        application_.acquire();
        QFontDatabase::hasFamily(famille_);
      }),
      dessins_([this, dossiers] {
        EnRetrait();
        images_ = LireImagesDuDepart(dossiers);
      }) {}

ImagesLues Avance::Attendre() {
  polices_.join();
  dessins_.join();
  if (!famille_.isEmpty()) ChoisirFamille(famille_);
  return std::move(images_);
}
