#pragma once
// The reading table that the build generates from Unihan (pinyin_table_gen.cpp): every
// character with a modern Mandarin reading, sorted by code point, each pointing at a
// shared, ordered set of toneless syllables. Internal to KelvoTextEngine.
#include <cstddef>
#include <cstdint>

namespace textengine {

struct PinyinTable {
    const char *syllableText;        // NUL-terminated syllables back to back
    const uint16_t *syllableOffset;  // start of each syllable in syllableText
    std::size_t syllableCount;
    const uint32_t *charCode;        // ascending code points
    const uint16_t *charSet;         // reading set of each code point
    std::size_t charCount;
    const uint32_t *setStart;        // setCount + 1 entries into setSyllable
    const uint16_t *setSyllable;     // syllable ids, most common reading first
    std::size_t setCount;
};

const PinyinTable &GeneratedPinyinTable();

} // namespace textengine
