// Build-time tool: turns Unihan_Readings.txt into pinyin_table_data.cpp, the compact
// reading table that PyNameMgr searches at run time.
//
//   kelvo_pinyin_gen <Unihan_Readings.txt[.bz2]> <output.cpp>
//
// Readings are the union of kMandarin, kHanyuPinlu, kXHC1983 and kTGHZ2013, in that
// order, so the first one of a character is its most common modern reading.
// kHanyuPinyin is left out on purpose: its archaic readings multiply the combinations
// of a name without helping anyone who types it. Tones are stripped and the letters
// upper-cased; u-umlaut becomes V ("LV" for the colour green), the way people type it.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#ifdef KELVO_PINYIN_GEN_BZIP2
#include <bzlib.h>
#endif

namespace {

bool EndsWith(const std::string &s, const char *suffix)
{
    const size_t n = std::strlen(suffix);
    return s.size() >= n && s.compare(s.size() - n, n, suffix) == 0;
}

bool ReadAll(const std::string &path, std::string &out)
{
    if (EndsWith(path, ".bz2")) {
#ifdef KELVO_PINYIN_GEN_BZIP2
        FILE *f = std::fopen(path.c_str(), "rb");
        if (!f)
            return false;
        int err = BZ_OK;
        BZFILE *bz = BZ2_bzReadOpen(&err, f, 0, 0, nullptr, 0);
        char buf[1 << 16];
        while (err == BZ_OK) {
            const int got = BZ2_bzRead(&err, bz, buf, sizeof buf);
            if (got > 0)
                out.append(buf, size_t(got));
        }
        BZ2_bzReadClose(&err, bz);
        std::fclose(f);
        return !out.empty();
#else
        std::cerr << "built without libbz2: decompress " << path << " first\n";
        return false;
#endif
    }
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return false;
    std::ostringstream ss;
    ss << in.rdbuf();
    out = ss.str();
    return !out.empty();
}

// Decodes the (valid) UTF-8 of the data file; the file is trusted build input.
std::vector<char32_t> DecodeUtf8(const std::string &s)
{
    std::vector<char32_t> out;
    for (size_t i = 0; i < s.size();) {
        const unsigned char b = static_cast<unsigned char>(s[i]);
        int len = b < 0x80 ? 1 : b < 0xE0 ? 2 : b < 0xF0 ? 3 : 4;
        char32_t cp = len == 1 ? b : len == 2 ? (b & 0x1F) : len == 3 ? (b & 0x0F) : (b & 0x07);
        for (int k = 1; k < len && i + size_t(k) < s.size(); ++k)
            cp = (cp << 6) | (static_cast<unsigned char>(s[i + size_t(k)]) & 0x3F);
        out.push_back(cp);
        i += size_t(len);
    }
    return out;
}

// One toneless upper-case syllable, or an empty string for a letter this tool does not know
// (then the build fails loudly instead of shipping a wrong table).
std::string StripTones(const std::string &reading)
{
    std::string out;
    for (char32_t c : DecodeUtf8(reading)) {
        if (c >= 'a' && c <= 'z') {
            out += char(c - 'a' + 'A');
            continue;
        }
        if (c >= 'A' && c <= 'Z') {
            out += char(c);
            continue;
        }
        if (c >= 0x300 && c <= 0x36F)
            continue; // combining tone mark
        switch (c) {
        case 0x101: case 0xE1: case 0x1CE: case 0xE0:
            out += 'A';
            break;
        case 0x113: case 0xE9: case 0x11B: case 0xE8: case 0xEA: case 0x1EBF: case 0x1EC1:
            out += 'E';
            break;
        case 0x12B: case 0xED: case 0x1D0: case 0xEC:
            out += 'I';
            break;
        case 0x14D: case 0xF3: case 0x1D2: case 0xF2:
            out += 'O';
            break;
        case 0x16B: case 0xFA: case 0x1D4: case 0xF9:
            out += 'U';
            break;
        case 0xFC: case 0x1D6: case 0x1D8: case 0x1DA: case 0x1DC:
            out += 'V';
            break;
        case 0x1E3F:
            out += 'M';
            break;
        case 0x144: case 0x148: case 0x1F9:
            out += 'N';
            break;
        default:
            return std::string();
        }
    }
    return out;
}

// The reading of one value token: "zhōng(4875)" (kHanyuPinlu) or "1494.100:zhōng"
// (kXHC1983, kTGHZ2013) or plain "zhōng" (kMandarin).
std::string ReadingOfToken(const std::string &token)
{
    std::string r = token;
    const size_t colon = r.rfind(':');
    if (colon != std::string::npos)
        r = r.substr(colon + 1);
    const size_t paren = r.find('(');
    if (paren != std::string::npos)
        r = r.substr(0, paren);
    return r;
}

struct CharReadings {
    std::vector<std::string> byField[4];
};

int FieldRank(const std::string &field)
{
    if (field == "kMandarin")
        return 0;
    if (field == "kHanyuPinlu")
        return 1;
    if (field == "kXHC1983")
        return 2;
    if (field == "kTGHZ2013")
        return 3;
    return -1;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::cerr << "usage: " << argv[0] << " <Unihan_Readings.txt[.bz2]> <output.cpp>\n";
        return 2;
    }
    std::string data;
    if (!ReadAll(argv[1], data)) {
        std::cerr << "cannot read " << argv[1] << "\n";
        return 1;
    }

    std::map<char32_t, CharReadings> chars;
    std::istringstream lines(data);
    std::string line;
    while (std::getline(lines, line)) {
        if (line.empty() || line[0] == '#' || line.compare(0, 2, "U+") != 0)
            continue;
        const size_t tab1 = line.find('\t');
        const size_t tab2 = tab1 == std::string::npos ? tab1 : line.find('\t', tab1 + 1);
        if (tab2 == std::string::npos)
            continue;
        const int rank = FieldRank(line.substr(tab1 + 1, tab2 - tab1 - 1));
        if (rank < 0)
            continue;
        const char32_t cp = char32_t(std::stoul(line.substr(2, tab1 - 2), nullptr, 16));
        std::istringstream values(line.substr(tab2 + 1));
        std::string token;
        while (values >> token) {
            const std::string syllable = StripTones(ReadingOfToken(token));
            if (syllable.empty()) {
                std::cerr << "unknown letter in reading '" << token << "' of U+" << std::hex
                          << uint32_t(cp) << "\n";
                return 1;
            }
            chars[cp].byField[rank].push_back(syllable);
        }
    }
    if (chars.size() < 20000) {
        std::cerr << "only " << chars.size() << " characters with readings: wrong input?\n";
        return 1;
    }

    // Syllables get ids in sorted order; reading sets (ordered lists of ids) are shared
    // between the many characters that read alike.
    std::map<std::string, uint16_t> syllableIds;
    for (const auto &entry : chars)
        for (const auto &field : entry.second.byField)
            for (const auto &s : field)
                syllableIds.emplace(s, 0);
    uint16_t next = 0;
    for (auto &s : syllableIds)
        s.second = next++;

    std::map<std::vector<uint16_t>, uint16_t> setIds;
    std::vector<const std::vector<uint16_t> *> setsInOrder;
    std::vector<std::pair<char32_t, uint16_t>> charSets;
    for (const auto &entry : chars) {
        std::vector<uint16_t> set;
        for (const auto &field : entry.second.byField)
            for (const auto &s : field) {
                const uint16_t id = syllableIds[s];
                if (std::find(set.begin(), set.end(), id) == set.end())
                    set.push_back(id);
            }
        auto it = setIds.find(set);
        if (it == setIds.end()) {
            it = setIds.emplace(set, uint16_t(setsInOrder.size())).first;
            setsInOrder.push_back(&it->first);
        }
        charSets.emplace_back(entry.first, it->second);
    }
    if (setsInOrder.size() > 0xFFFF) {
        std::cerr << "too many reading sets\n";
        return 1;
    }

    std::ofstream out(argv[2], std::ios::binary | std::ios::trunc);
    out << "// Generated by kelvo_pinyin_gen from Unihan_Readings.txt. Do not edit.\n"
        << "#include \"textengine/pinyin_table.h\"\n\n"
        << "namespace textengine {\nnamespace {\n\n";

    // Adjacent literals, one per syllable, each with its terminating NUL spelled out.
    out << "const char kSyllableText[] =";
    std::vector<uint32_t> syllableOffsets;
    uint32_t offset = 0;
    for (const auto &s : syllableIds) {
        out << (syllableOffsets.size() % 10 == 0 ? "\n    \"" : " \"") << s.first << "\\0\"";
        syllableOffsets.push_back(offset);
        offset += uint32_t(s.first.size() + 1);
    }
    out << ";\n\n";

    auto writeArray = [&out](const char *type, const char *name, const auto &values) {
        out << "const " << type << ' ' << name << "[] = {";
        size_t i = 0;
        for (const auto &v : values) {
            out << (i % 12 == 0 ? "\n    " : " ") << uint32_t(v) << ',';
            ++i;
        }
        out << "\n};\n\n";
    };
    writeArray("uint16_t", "kSyllableOffset", syllableOffsets);

    std::vector<uint32_t> codes;
    std::vector<uint16_t> sets;
    for (const auto &cs : charSets) {
        codes.push_back(uint32_t(cs.first));
        sets.push_back(cs.second);
    }
    writeArray("uint32_t", "kCharCode", codes);
    writeArray("uint16_t", "kCharSet", sets);

    std::vector<uint32_t> setStart;
    std::vector<uint16_t> setMembers;
    for (const auto *set : setsInOrder) {
        setStart.push_back(uint32_t(setMembers.size()));
        setMembers.insert(setMembers.end(), set->begin(), set->end());
    }
    setStart.push_back(uint32_t(setMembers.size()));
    writeArray("uint32_t", "kSetStart", setStart);
    writeArray("uint16_t", "kSetSyllable", setMembers);

    out << "} // namespace\n\n"
        << "const PinyinTable &GeneratedPinyinTable()\n{\n"
        << "    static const PinyinTable table{kSyllableText, kSyllableOffset, "
        << syllableIds.size() << ",\n"
        << "                                   kCharCode, kCharSet, " << codes.size() << ",\n"
        << "                                   kSetStart, kSetSyllable, " << setsInOrder.size()
        << "};\n    return table;\n}\n\n} // namespace textengine\n";
    if (!out) {
        std::cerr << "cannot write " << argv[2] << "\n";
        return 1;
    }
    return 0;
}
