#include "motifs/Encodage.h"

#include "base/TexteNumerique.h"

namespace {
// Bytes of the character at the head, 0 where it is none.
std::size_t Longueur(std::string_view o) {
  const auto c = [&](std::size_t i) { return static_cast<unsigned char>(o[i]); };
  if (c(0) < 0x80) return 1;
  const std::size_t n = c(0) >= 0xC2 && c(0) < 0xE0   ? 2
                        : c(0) >= 0xE0 && c(0) < 0xF0 ? 3
                        : c(0) >= 0xF0 && c(0) < 0xF5 ? 4
                                                      : 0;
  if (n == 0 || o.size() < n) return 0;
  for (std::size_t i = 1; i < n; ++i)
    if ((c(i) & 0xC0) != 0x80) return 0;
  // Overlong forms, halves of pairs, and what lies beyond the last character.
  if ((c(0) == 0xE0 && c(1) < 0xA0) || (c(0) == 0xED && c(1) > 0x9F) || (c(0) == 0xF0 && c(1) < 0x90) ||
      (c(0) == 0xF4 && c(1) > 0x8F))
    return 0;
  return n;
}
}  // namespace

bool EstUtf8(std::string_view octets) {
  while (!octets.empty()) {
    const auto n = Longueur(octets);
    if (n == 0) return false;
    octets.remove_prefix(n);
  }
  return true;
}

std::string EnUtf8(std::string_view octets) {
  const bool utf8 = EstUtf8(octets);
  std::string texte;
  for (std::size_t i = 0; i < octets.size(); ++i) {
    const auto c = static_cast<unsigned char>(octets[i]);
    const bool haute = utf8 && c == 0xC2 && static_cast<unsigned char>(octets[i + 1]) < 0xA0;
    if (c < 0x20 || c == 0x7F || haute || (!utf8 && c >= 0x80 && c < 0xA0)) {
      texte += ' ';
      i += haute;
    } else if (utf8 || c < 0x80) {
      texte += octets[i];
    } else {
      texte += static_cast<char>(0xC0 | c >> 6);
      texte += static_cast<char>(0x80 | (c & 0x3F));
    }
  }
  return texte;
}

std::string Abreger(const std::string &texte, int caracteres) {
  const std::size_t fin = PlaceCaractere(texte, caracteres);
  return fin == texte.size() ? texte : texte.substr(0, fin) + "…";
}

std::string Citer(std::string_view octets) {
  constexpr int kLongueur = 40;
  return Abreger(EnUtf8(octets.substr(0, 8 * kLongueur)), kLongueur);
}
