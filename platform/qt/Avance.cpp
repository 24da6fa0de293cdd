#include "platform/qt/Avance.h"

#include <fontconfig/fontconfig.h>
#include <malloc.h>
#include <sched.h>

#include <QDBusConnection>
#include <QGuiApplication>
#include <memory>

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

// The cores but this one: some kernels leave a short thread where it was born. False where there are none.
bool AutresCoeurs(cpu_set_t &coeurs) {
  const int ici = sched_getcpu();
  if (ici < 0 || sched_getaffinity(0, sizeof coeurs, &coeurs) != 0) return false;
  CPU_CLR(static_cast<std::size_t>(ici), &coeurs);
  return CPU_COUNT(&coeurs) > 0;
}
}  // namespace

Avance::Avance() {
  pthread_attr_t voulu;
  pthread_attr_init(&voulu);
  cpu_set_t coeurs;
  if (AutresCoeurs(coeurs)) pthread_attr_setaffinity_np(&voulu, sizeof coeurs, &coeurs);
  const auto lire = [](void *avance) -> void * {
    static_cast<Avance *>(avance)->LirePolices();
    return nullptr;
  };
  if (pthread_create(&polices_, &voulu, lire, this) != 0) {
    LirePolices();
    jointe_ = true;
  }
  pthread_attr_destroy(&voulu);
}

Avance::~Avance() {
  if (!jointe_) pthread_join(polices_, nullptr);
}

void Avance::LirePolices() {
  FcInit();
  famille_ = FamillePourArial();
  finies_ = true;
}

void Avance::Ouvrir() {
  if (QGuiApplication::platformName() != QStringLiteral("offscreen"))
    bus_ = std::jthread([] { QDBusConnection::sessionBus(); });
}

// Memory costs most where it is touched for the first time: pages that the windows will take are touched as
// long as there is time. malloc keeps them, and takes large blocks from them too.
void Avance::PreparerMemoire() const {
  constexpr int kReserve = 5 << 20, kGarde = 8 << 20, kPage = 4096;  // bytes
  mallopt(M_MMAP_THRESHOLD, kGarde);
  mallopt(M_TRIM_THRESHOLD, kGarde);
  const std::unique_ptr<char[]> reserve(new char[kReserve]);
  for (int place = 0; place < kReserve && !finies_; place += kPage) explicit_bzero(reserve.get() + place, 1);
}

void Avance::Attendre() {
  PreparerMemoire();
  if (!jointe_) pthread_join(polices_, nullptr);
  jointe_ = true;
  if (!famille_.isEmpty()) ChoisirFamille(famille_);
}
