// The guard under which every event's procedure runs; the gate that lets events in calls it.
#pragma once

#include <functional>

#include "base/ErreurExecution.h"

// Runs an event's procedure. A run-time failure that nobody caught goes to `rapporter` with its report
// ("Run-time error '9': Subscript out of range"), which ends the process.
inline void SousGarde(const std::function<void()> &evenement,
                      const std::function<void(const std::string &)> &rapporter) {
  try {
    evenement();
  } catch (const ErreurExecution &e) {
    rapporter(e.Rapport());
  }
}
