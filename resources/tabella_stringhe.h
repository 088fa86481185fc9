// The string table compiled into the program: English texts at their id, Italian texts
// at id + 1000. Generated at build time from stringhe_en.txt and stringhe_it.txt.
#pragma once
#include <cstdint>
#include <span>
#include <string_view>

namespace krt {

struct VoceTabellaStringhe {
    std::int16_t id;
    std::string_view testo;  // UTF-8
};

// Every text of both languages, sorted by id.
std::span<const VoceTabellaStringhe> TabellaStringhe();

}  // namespace krt
