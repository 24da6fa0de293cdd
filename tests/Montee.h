// The whole program with its native windows, offscreen, in a fresh folder; no event loop runs but where a
// test runs it.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTest>
#include <filesystem>
#include <fstream>

#include "app/Montage.h"
#include "session/FenetreTissagePrincipale.h"

struct Machine : PlateformeQt {
  using PlateformeQt::PlateformeQt;
  void Terminer() override { ++fins, PlateformeQt::Terminer(); }
  void PousserSurDisque(int) override {}  // its descriptors come and go as the disk pleases
  int fins = 0;
};

inline void PlusTard(const auto &suite) { QMetaObject::invokeMethod(qApp, suite, Qt::QueuedConnection); }

class Montee : public testing::Test {
 protected:
  // One warning for every window that cannot be raised.
  static void SetUpTestSuite() { QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false")); }
  void SetUp() override {
    machine.reset();
    dossier = std::make_unique<QTemporaryDir>();
    std::filesystem::create_directory(Chemin("Data"));
    Redemarrer();
  }
  // A new process in the folder as it stands.
  void Redemarrer() {
    for (Fenetre *f : ToutesFenetres()) Decharger(*f);
    session = {};
    fenetre = FenetreTissagePrincipale();
    const std::string base = dossier->path().toStdString();
    machine = std::make_unique<Machine>(DossiersProgramme{base, {base, BRANDIS_PROGRAMME}});
    Monter(*machine);
  }
  std::string Chemin(const std::string &nom) const { return dossier->path().toStdString() + "/" + nom; }
  void Passer(const std::function<void()> &procedure) { machine->LeMiroir().Passer(procedure); }
  QWidget *Natif(const Controle &c) { return machine->LeMiroir().Widget(c); }

  std::unique_ptr<QTemporaryDir> dossier;
  std::unique_ptr<Machine> machine;
};
