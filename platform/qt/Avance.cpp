#include "platform/qt/Avance.h"

#include <fontconfig/fontconfig.h>
#include <sys/resource.h>

#include <QDBusConnection>
#include <QGuiApplication>

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

Avance::Avance()
    : fil_([this] {
        EnRetrait();
        FcInit();
        famille_ = FamillePourArial();
        lue_.release();
        application_.acquire();
        if (QGuiApplication::platformName() != QStringLiteral("offscreen")) QDBusConnection::sessionBus();
      }) {}

void Avance::Attendre() {
  lue_.acquire();
  if (!famille_.isEmpty()) ChoisirFamille(famille_);
}
