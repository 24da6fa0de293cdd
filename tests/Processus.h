// Child processes of the end-to-end tests: the program under its pilot, and the simulated loom.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

// A child with its standard input and output on pipes. A child that stays silent for half a minute is taken
// for hung; nothing else depends on time.
class Processus {
 public:
  explicit Processus(const std::vector<std::string> &mots) {
    int vers[2], de[2];
    if (pipe2(vers, O_CLOEXEC) != 0 || pipe2(de, O_CLOEXEC) != 0) std::abort();
    pid_ = fork();
    if (pid_ == 0) {
      dup2(vers[0], 0);
      dup2(de[1], 1);
      std::vector<char *> argv;
      for (const std::string &m : mots) argv.push_back(const_cast<char *>(m.c_str()));
      argv.push_back(nullptr);
      execv(argv[0], argv.data());
      _exit(127);
    }
    close(vers[0]);
    close(de[1]);
    entree_ = vers[1];
    sortie_ = de[0];
  }
  ~Processus() {
    Tuer(SIGKILL);
    close(entree_);
    close(sortie_);
  }
  Processus(const Processus &) = delete;
  Processus &operator=(const Processus &) = delete;

  void Dire(const std::string &ligne) const {
    const std::string texte = ligne + "\n";
    if (write(entree_, texte.data(), texte.size()) < 0) return;
  }

  // The next line; empty when the child has ended or hangs.
  std::string Ligne() {
    for (;;) {
      const auto fin = tampon_.find('\n');
      if (fin != std::string::npos) {
        std::string ligne = tampon_.substr(0, fin);
        tampon_.erase(0, fin + 1);
        return ligne;
      }
      pollfd attente{sortie_, POLLIN, 0};
      char octets[4096];
      if (poll(&attente, 1, 30000) <= 0) return "";
      const ssize_t n = read(sortie_, octets, sizeof octets);
      if (n <= 0) return "";
      tampon_.append(octets, static_cast<std::size_t>(n));
    }
  }
  // Lines up to one that begins so; that one is returned, empty when it never comes.
  std::string LigneQuiCommence(const std::string &debut) {
    for (;;) {
      std::string ligne = Ligne();
      if (ligne.empty() || ligne.rfind(debut, 0) == 0) return ligne;
    }
  }

  int Tuer(int signal) {
    if (pid_ <= 0) return etat_;
    kill(pid_, signal);
    return Attendre();
  }
  // The exit status, or 128 and the signal.
  int Attendre() {
    if (pid_ <= 0) return etat_;
    int brut = 0;
    waitpid(pid_, &brut, 0);
    pid_ = 0;
    return etat_ = WIFEXITED(brut) ? WEXITSTATUS(brut) : 128 + WTERMSIG(brut);
  }

 private:
  pid_t pid_ = 0;
  int entree_ = -1, sortie_ = -1, etat_ = -1;
  std::string tampon_;
};
