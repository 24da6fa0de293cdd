#include "base/TexteDate.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>

std::string TexteDate(double date) {
  using namespace std::chrono;
  // A date from a damaged file stays within four-digit years.
  const double jours_bornes = std::isfinite(date) ? std::clamp(std::floor(date), -657434.0, 2958465.0) : 0;
  const year_month_day j{sys_days{year{1899} / December / 30} + days{static_cast<int>(jours_bornes)}};
  char tampon[32];
  std::snprintf(tampon, sizeof tampon, "%04d-%02u-%02u", static_cast<int>(j.year()),
                static_cast<unsigned>(j.month()), static_cast<unsigned>(j.day()));
  return tampon;
}
