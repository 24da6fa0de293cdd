// Windows-1252, the 8-bit code page of texts that are not UTF-8.
#pragma once

// Its characters 0x80 to 0x9F; five holes stand for themselves. All others are those of Unicode.
constexpr char16_t kSuperieurs1252[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                          0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                          0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                          0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char16_t Caractere1252(unsigned char octet) {
  return octet >= 0x80 && octet < 0xA0 ? kSuperieurs1252[octet - 0x80] : octet;
}
