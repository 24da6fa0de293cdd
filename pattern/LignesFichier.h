// A text file read line by line; CR LF, LF and CR each end a line. Closes with the object.
#pragma once

#include <cstdio>
#include <memory>
#include <string>

class LignesFichier {
 public:
  // Fails with 53, 70, 75 or 76.
  explicit LignesFichier(const std::string &chemin);
  // The next line without its end; false behind the last. Fails with 57.
  bool Lire(std::string &ligne);

 private:
  bool Remplir();
  struct Fermeture {
    void operator()(std::FILE *f) const { std::fclose(f); }
  };
  std::unique_ptr<std::FILE, Fermeture> fichier_;
  std::string tampon_;
  std::size_t place_ = 0;
  bool retourVu_ = false;  // the last line ended in CR: a LF right behind belongs to it
};
