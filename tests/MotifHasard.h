// A pattern drawn by lot, of which every shed is known, and its file written as wildly as the format allows.
#pragma once

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <vector>

class MotifHasard {
 public:
  std::vector<std::set<int>> enfilage, attaches, pedalage, foules;  // foules: what has to rise
  int lames, pedales;
  bool liftplan, montante;

  explicit MotifHasard(std::mt19937 &h) {
    lames = 2 + De(h, 22);
    pedales = 1 + De(h, 12);
    liftplan = De(h, 2) == 0;
    montante = De(h, 3) > 0;
    for (int n = 1 + De(h, 60); n > 0; --n) enfilage.push_back({1 + De(h, lames)});
    if (De(h, 4) == 0) enfilage.front().insert(1 + De(h, lames));
    for (int p = 0; p < pedales; ++p) attaches.push_back(Lot(h, lames));
    for (int n = 1 + De(h, 80); n > 0; --n) {
      std::set<int> foule;
      if (liftplan) {
        foule = Lot(h, lames);
        plan_.push_back(foule);
      } else {
        pedalage.push_back(Lot(h, std::min(pedales, 1 + De(h, 3))));
        for (int p : pedalage.back())
          for (int l : attaches[static_cast<std::size_t>(p - 1)]) foule.insert(l);
      }
      std::set<int> leve;
      for (int l = 1; l <= lames; ++l)
        if ((foule.count(l) > 0) == montante) leve.insert(l);
      foules.push_back(leve);
    }
  }

  std::string Texte(std::mt19937 &h) const {
    static const char *const fins[] = {"\n", "\r\n", "\r"};
    const std::string fin = fins[De(h, 3)];
    std::string t = De(h, 3) == 0   ? "courrier, [bonjour]" + fin + "1=2" + fin
                    : De(h, 4) == 0 ? "\xEF\xBB\xBF"
                                    : "";
    t += "[" + Mot(h, "WIF") + "]" + fin + Mot(h, "Version") + "=1." + std::to_string(De(h, 3)) + fin;
    std::vector<std::string> sections{
        Section(h, "Threading", enfilage, fin, false),
        "[" + Mot(h, "Weaving") + "]" + fin + Mot(h, "Shafts") + " = " + std::to_string(lames) + fin +
            Mot(h, "Rising Shed") + "=" + (montante ? "true" : "no") + fin,
        "[" + Mot(h, "Weft") + "]" + fin + "Threads=" + std::to_string(foules.size()) + fin + "Color=2" + fin,
        "[Texte inconnu]" + fin + "[1=3" + fin + "n'importe quoi" + fin};
    if (liftplan) {
      sections.push_back(Section(h, "Liftplan", plan_, fin, true));
    } else {
      sections.push_back(Section(h, "Tieup", attaches, fin, true));
      sections.push_back(Section(h, "Treadling", pedalage, fin, true));
    }
    std::shuffle(sections.begin(), sections.end(), h);
    for (const std::string &s : sections) t += s;
    return t;
  }

 private:
  static int De(std::mt19937 &h, int n) { return static_cast<int>(h() % static_cast<unsigned>(n)); }
  static std::set<int> Lot(std::mt19937 &h, int dernier) {
    std::set<int> lot;
    for (int n = De(h, 2) ? De(h, 3) : De(h, dernier + 1); n > 0; --n) lot.insert(1 + De(h, dernier));
    return lot;
  }
  static std::string Mot(std::mt19937 &h, std::string mot) {
    for (char &c : mot)
      if (De(h, 3) == 0)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
      else if (De(h, 3) == 0)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return mot;
  }
  static std::string Blancs(std::mt19937 &h) { return De(h, 4) ? "" : De(h, 2) ? "  " : "\t"; }

  // The lines in any order; a line that says nothing may be missing, where the count is told elsewhere.
  static std::string Section(std::mt19937 &h, const std::string &nom,
                             const std::vector<std::set<int>> &lignes, const std::string &fin, bool trouee) {
    std::vector<std::string> texte;
    for (std::size_t i = 0; i < lignes.size(); ++i) {
      if (trouee && lignes[i].empty() && texte.size() > 1 && De(h, 2)) continue;
      std::string l = Blancs(h) + std::to_string(i + 1) + Blancs(h) + "=";
      for (int n : lignes[i]) l += Blancs(h) + std::to_string(n) + Blancs(h) + ",";
      if (!lignes[i].empty() && De(h, 3)) l.pop_back();
      texte.push_back(l + Blancs(h) + (De(h, 9) ? "" : ";" + nom) + fin +
                      (De(h, 9) ? "" : "; rien" + fin + fin));
    }
    if (De(h, 3) == 0) std::shuffle(texte.begin(), texte.end(), h);
    std::string tout = Blancs(h) + "[" + Mot(h, nom) + "]" + Blancs(h) + fin;
    for (const std::string &l : texte) tout += l;
    return tout;
  }

  std::vector<std::set<int>> plan_;
};
