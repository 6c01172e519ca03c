#include "textengine/quick_search.h"

#include "textengine/wildcard.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>
#include <type_traits>

#if defined(_MSC_VER)
#define KELVO_QS_INLINE __forceinline
#define KELVO_QS_NOINLINE __declspec(noinline)
#elif defined(__GNUC__)
#define KELVO_QS_INLINE inline __attribute__((always_inline))
#define KELVO_QS_NOINLINE __attribute__((noinline))
#else
#define KELVO_QS_INLINE inline
#define KELVO_QS_NOINLINE
#endif

namespace search {

namespace {

using detail::Element;
using detail::ElementKind;

char32_t FoldAscii(char32_t c)
{
    return c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c;
}

// The bytes of one list: the first few in place (most lists stay that short, and an
// index has hundreds of thousands of them), longer ones on the heap.
class PostingBytes
{
public:
    static constexpr uint32_t kInPlace = 16;

    PostingBytes() = default;
    PostingBytes(const PostingBytes &) = delete;
    PostingBytes &operator=(const PostingBytes &) = delete;
    PostingBytes(PostingBytes &&other) noexcept { Take(other); }
    PostingBytes &operator=(PostingBytes &&other) noexcept
    {
        if (this != &other) {
            Release();
            Take(other);
        }
        return *this;
    }
    ~PostingBytes() { Release(); }

    const uint8_t *data() const { return m_capacity > kInPlace ? m_heap : m_local; }
    size_t size() const { return m_size; }
    size_t capacity() const { return m_capacity > kInPlace ? m_capacity : 0; } // heap bytes

    KELVO_QS_INLINE void push_back(uint8_t b)
    {
        if (m_size == m_capacity)
            Grow();
        (m_capacity > kInPlace ? m_heap : m_local)[m_size++] = b;
    }

    void clear() { m_size = 0; }

    void shrink_to_fit()
    {
        if (m_capacity <= kInPlace || m_size == m_capacity)
            return;
        uint8_t *heap = m_heap;
        if (m_size <= kInPlace) {
            std::memcpy(m_local, heap, m_size);
            m_capacity = kInPlace;
        } else {
            m_heap = new uint8_t[m_size];
            std::memcpy(m_heap, heap, m_size);
            m_capacity = m_size;
        }
        delete[] heap;
    }

private:
    KELVO_QS_NOINLINE void Grow()
    {
        const uint32_t capacity = m_capacity * 2;
        uint8_t *heap = new uint8_t[capacity];
        std::memcpy(heap, data(), m_size);
        Release();
        m_heap = heap;
        m_capacity = capacity;
    }

    void Release()
    {
        if (m_capacity > kInPlace)
            delete[] m_heap;
        m_capacity = kInPlace;
    }

    void Take(PostingBytes &other)
    {
        std::memcpy(m_local, other.m_local, kInPlace); // the heap pointer too, if any
        m_size = other.m_size;
        m_capacity = other.m_capacity;
        other.m_size = 0;
        other.m_capacity = kInPlace;
    }

    union {
        uint8_t *m_heap;
        uint8_t m_local[kInPlace];
    };
    uint32_t m_size = 0;
    uint32_t m_capacity = kInPlace;
};

// Ids that contain one gram: ascending ids, delta-coded in little-endian base-128 groups,
// so a dense list costs about a byte an id.
struct Posting {
    PostingBytes bytes;
    int last = 0;
    uint32_t count = 0;
    bool sorted = true;

    KELVO_QS_INLINE void Put(uint32_t v)
    {
        while (v >= 0x80) {
            bytes.push_back(uint8_t(v | 0x80));
            v >>= 7;
        }
        bytes.push_back(uint8_t(v));
    }

    KELVO_QS_INLINE void Add(int id)
    {
        if (count > 0) {
            if (id == last)
                return;
            if (id < last)
                sorted = false;
        }
        Put(uint32_t(id) - uint32_t(last)); // wraps for a first negative id, undone on decode
        last = id;
        ++count;
    }

    template<typename F>
    void ForEach(F &&f) const
    {
        uint32_t acc = 0;
        const uint8_t *p = bytes.data();
        const uint8_t *end = p + bytes.size();
        while (p < end) {
            uint32_t v = 0;
            int shift = 0;
            while (p < end && (*p & 0x80)) {
                v |= uint32_t(*p++ & 0x7F) << shift;
                shift += 7;
            }
            if (p < end)
                v |= uint32_t(*p++) << shift;
            acc += v;
            if (!f(int(acc)))
                return;
        }
    }

    // Ids that came out of order are put in order, once, when the list is first read.
    void Normalize()
    {
        if (sorted)
            return;
        std::vector<int> ids;
        ids.reserve(count);
        ForEach([&ids](int id) {
            ids.push_back(id);
            return true;
        });
        std::sort(ids.begin(), ids.end());
        ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
        bytes.clear();
        count = 0;
        last = 0;
        sorted = true;
        for (int id : ids)
            Add(id);
        bytes.shrink_to_fit();
    }
};

// Open-addressing map from a packed gram to its posting list number; 0 marks a free slot,
// which no packed gram is.
class GramMap
{
public:
    uint32_t Find(uint64_t key) const
    {
        if (m_keys.empty())
            return 0;
        for (size_t i = Home(key);; i = (i + 1) & m_mask) {
            if (m_keys[i] == key)
                return m_values[i];
            if (m_keys[i] == 0)
                return 0;
        }
    }

    // The slot of key, made (holding 0) if new.
    uint32_t &Slot(uint64_t key)
    {
        if ((m_used + 1) * 2 > m_keys.size())
            Grow();
        size_t i = Home(key);
        while (m_keys[i] != key && m_keys[i] != 0)
            i = (i + 1) & m_mask;
        if (m_keys[i] == 0) {
            m_keys[i] = key;
            ++m_used;
        }
        return m_values[i];
    }

    void Clear()
    {
        m_keys.clear();
        m_values.clear();
        m_keys.shrink_to_fit();
        m_values.shrink_to_fit();
        m_used = 0;
        m_mask = 0;
        m_shift = 64;
    }

    size_t Bytes() const { return m_keys.capacity() * 8 + m_values.capacity() * 4; }

private:
    size_t Home(uint64_t key) const { return size_t((key * 0x9E3779B97F4A7C15ull) >> m_shift); }

    void Grow()
    {
        std::vector<uint64_t> keys;
        std::vector<uint32_t> values;
        keys.swap(m_keys);
        values.swap(m_values);
        const size_t size = keys.empty() ? 1024 : keys.size() * 2;
        m_keys.assign(size, 0);
        m_values.assign(size, 0);
        m_mask = size - 1;
        m_shift = 64;
        for (size_t s = size; s > 1; s >>= 1)
            --m_shift;
        m_used = 0;
        for (size_t i = 0; i < keys.size(); ++i)
            if (keys[i] != 0)
                Slot(keys[i]) = values[i];
    }

    std::vector<uint64_t> m_keys;
    std::vector<uint32_t> m_values;
    size_t m_used = 0;
    size_t m_mask = 0;
    int m_shift = 64;
};

// Printable ASCII without the lower-case letters (texts are folded) gets a small number,
// so that single characters and pairs of them index flat tables instead of the hash map.
constexpr unsigned kSymbols = 70;

unsigned Symbol(char32_t c)
{
    if (c >= 0x20 && c <= 0x60)
        return unsigned(c) - 0x1F;
    if (c >= 0x7B && c <= 0x7E)
        return unsigned(c) - 0x7B + 66;
    return 0;
}

struct TextRef {
    int id;
    uint32_t offset;
    uint32_t length;
};

// Ends each text in the store; no UTF-8 text holds this byte, so a search for a key
// over all texts of an id at once never matches across two of them.
constexpr char kTextEnd = char(0xFF);

// All texts of one id, side by side in the store.
struct IdRun {
    int id;
    uint32_t begin;
    uint32_t end;
};

// The first run at or after `from` whose id is not below `id`: a step that doubles, then
// a binary search, so that ascending ids cost little whether close together or far apart.
const IdRun *FindRun(const IdRun *from, const IdRun *end, int id)
{
    size_t step = 1;
    const IdRun *low = from;
    while (step < size_t(end - low) && low[step].id < id) {
        low += step;
        step *= 2;
    }
    const IdRun *high = step < size_t(end - low) ? low + step + 1 : end;
    return std::lower_bound(low, high, id, [](const IdRun &r, int v) { return r.id < v; });
}

} // namespace

class QuickSearch::Impl
{
public:
    // Posting list number (0 for none) of the gram g[0..len).
    uint32_t Find(const char32_t *g, int len) const
    {
        size_t at = 0;
        if (!InDenseTable(g, len, at))
            return m_others.Find(Pack(g, len));
        const std::vector<uint32_t> &dense = m_dense[len - 1];
        return at < dense.size() ? dense[at] : 0;
    }

    void Insert(const std::wstring &text, int id)
    {
        // Scratch buffers live in the index: inserting is the hot loop of a rebuild.
        std::vector<char32_t> &cps = m_scratchCps;
        std::string &utf8 = m_scratchUtf8;
        // Most texts (codes, names in Latin letters, pinyin forms) are ASCII.
        const size_t size = text.size();
        cps.resize(size);
        utf8.resize(size);
        size_t ascii = 0;
        for (; ascii < size; ++ascii) {
            const auto c = static_cast<std::make_unsigned_t<wchar_t>>(text[ascii]);
            if (c >= 0x80)
                break;
            const char32_t folded = FoldAscii(char32_t(c));
            cps[ascii] = folded;
            utf8[ascii] = char(folded);
        }
        if (ascii < size) {
            detail::WideToCodePoints(text.data(), text.size(), cps);
            utf8.clear();
            for (char32_t &c : cps) {
                c = FoldAscii(c);
                detail::AppendUtf8(utf8, c);
            }
        }
        // The usual duplicates (a code whose pinyin forms are the code itself) come right
        // after each other; out-of-order ones are caught in SortTexts.
        for (size_t i = m_texts.size(), seen = 0; i-- > 0 && m_texts[i].id == id && seen < 64;
             ++seen) {
            if (View(m_texts[i]) == utf8)
                return;
        }
        if (m_chars.size() + utf8.size() + 1 > std::numeric_limits<uint32_t>::max())
            return; // beyond what a 32-bit offset reaches: more than any name list needs
        if (!m_texts.empty() && id < m_texts.back().id)
            m_textsSorted = false;
        const uint32_t offset = uint32_t(m_chars.size());
        m_texts.push_back({id, offset, uint32_t(utf8.size())});
        m_chars += utf8;
        m_chars += kTextEnd;
        if (m_textsSorted) {
            if (m_runs.empty() || m_runs.back().id != id)
                m_runs.push_back({id, offset, offset});
            m_runs.back().end = uint32_t(m_chars.size());
        }

        // The single characters and the pairs of each position. A pair's flat-table place
        // is made from the two characters' numbers, each worked out once.
        const size_t n = cps.size();
        unsigned s0 = n > 0 ? Symbol(cps[0]) : 0;
        for (size_t i = 0; i < n; ++i) {
            AddToSlot(s0 != 0 ? DenseSlot(0, s0) : &m_others.Slot(Pack(&cps[i], 1)), id);
            if (i + 1 == n)
                break;
            const unsigned s1 = Symbol(cps[i + 1]);
            AddToSlot(s0 != 0 && s1 != 0 ? DenseSlot(1, size_t(s0) * kSymbols + s1) : &m_others.Slot(Pack(&cps[i], 2)),
                      id);
            s0 = s1;
        }
    }

    // The slot of a gram in the flat table of grams of length + 1 characters.
    uint32_t *DenseSlot(int length, size_t at)
    {
        std::vector<uint32_t> &dense = m_dense[length];
        if (dense.empty())
            dense.assign(length == 0 ? kSymbols : kSymbols * kSymbols, 0);
        return &dense[at];
    }

    // Runs once per gram of every text; Posting::Add, in line, turns away a repeated id.
    KELVO_QS_INLINE void AddToSlot(uint32_t *slot, int id)
    {
        const uint32_t list = *slot;
        if (list == 0)
            NewList(slot, id);
        else
            m_lists[list].Add(id);
    }

    KELVO_QS_NOINLINE void NewList(uint32_t *slot, int id)
    {
        m_lists.emplace_back();
        *slot = uint32_t(m_lists.size() - 1);
        m_lists.back().Add(id);
    }

    void Search(const std::wstring &key, std::vector<int> &ids);

    void SortTexts()
    {
        if (m_textsSorted)
            return;
        std::sort(m_texts.begin(), m_texts.end(), [this](const TextRef &a, const TextRef &b) {
            return a.id != b.id ? a.id < b.id : View(a) < View(b);
        });
        m_texts.erase(std::unique(m_texts.begin(), m_texts.end(),
                                  [this](const TextRef &a, const TextRef &b) {
                                      return a.id == b.id && View(a) == View(b);
                                  }),
                      m_texts.end());
        // The store is written again in that order, so that each id's texts are together.
        std::string chars;
        chars.reserve(m_chars.size());
        m_runs.clear();
        for (TextRef &t : m_texts) {
            const uint32_t offset = uint32_t(chars.size());
            chars.append(View(t));
            chars += kTextEnd;
            t.offset = offset;
            if (m_runs.empty() || m_runs.back().id != t.id)
                m_runs.push_back({t.id, offset, offset});
            m_runs.back().end = uint32_t(chars.size());
        }
        m_chars.swap(chars);
        m_textsSorted = true;
    }

    void Clear()
    {
        for (std::vector<uint32_t> &dense : m_dense) {
            dense.clear();
            dense.shrink_to_fit();
        }
        m_others.Clear();
        m_lists.clear();
        m_lists.shrink_to_fit();
        m_lists.emplace_back(); // number 0 means "no list"
        m_texts.clear();
        m_texts.shrink_to_fit();
        m_chars.clear();
        m_chars.shrink_to_fit();
        m_runs.clear();
        m_runs.shrink_to_fit();
        m_textsSorted = true;
    }

    size_t Bytes() const
    {
        size_t bytes = sizeof(*this) + m_others.Bytes() + m_lists.capacity() * sizeof(Posting)
            + m_texts.capacity() * sizeof(TextRef) + m_chars.capacity() + m_runs.capacity() * sizeof(IdRun);
        for (const std::vector<uint32_t> &dense : m_dense)
            bytes += dense.capacity() * 4;
        for (const Posting &p : m_lists)
            bytes += p.bytes.capacity();
        return bytes;
    }

    std::string_view View(const TextRef &t) const
    {
        return std::string_view(m_chars.data() + t.offset, t.length);
    }

    Impl() { Clear(); }

    std::vector<Posting> m_lists;
    std::vector<TextRef> m_texts;
    std::vector<IdRun> m_runs; // by ascending id, once the texts are sorted
    bool m_textsSorted = true;

private:
    // Whether the gram goes to the flat table of its length, and at which place.
    static bool InDenseTable(const char32_t *g, int len, size_t &at)
    {
        at = 0;
        for (int i = 0; i < len; ++i) {
            const unsigned sym = Symbol(g[i]);
            if (sym == 0)
                return false;
            at = at * kSymbols + sym;
        }
        return true;
    }

    static uint64_t Pack(const char32_t *g, int len)
    {
        uint64_t key = 0;
        for (int i = 0; i < len; ++i)
            key = (key << 21) | uint64_t(g[i] + 1);
        return key;
    }

    std::vector<uint32_t> m_dense[2]; // grams of one and two table characters
    GramMap m_others;
    std::string m_chars;
    std::vector<char32_t> m_scratchCps;
    std::string m_scratchUtf8;
};

void QuickSearch::Impl::Search(const std::wstring &key, std::vector<int> &ids)
{
    ids.clear();
    SortTexts();

    // The key as the filter's pattern sees it: blanks are stars, ASCII is folded.
    std::string pattern;
    for (char32_t c : detail::WideToCodePoints(key.data(), key.size()))
        detail::AppendUtf8(pattern, c == ' ' ? char32_t('*') : FoldAscii(c));

    // Literal runs between wildcards; each must occur in a matching text.
    std::vector<std::vector<char32_t>> runs(1);
    bool checkShape = false; // '?' or a class: containment of the runs is not enough
    for (size_t pos = 0; pos < pattern.size();) {
        const Element e = detail::ParseElement(pattern.data(), pattern.size(), pos);
        if (pattern[pos] == '\\' && pos + 1 == pattern.size()) {
            pattern.pop_back();
            break;
        }
        if (e.kind == ElementKind::Literal) {
            runs.back().push_back(e.cp);
        } else {
            checkShape = checkShape || e.kind != ElementKind::Star;
            if (!runs.back().empty())
                runs.emplace_back();
        }
        pos = e.next;
    }
    if (runs.back().empty())
        runs.pop_back();

    const bool verify = checkShape || runs.size() > 1 || (runs.size() == 1 && runs[0].size() > 2);

    std::vector<int> candidates;
    if (runs.empty()) {
        candidates.reserve(m_runs.size());
        for (const IdRun &r : m_runs)
            candidates.push_back(r.id);
    } else {
        std::vector<uint32_t> lists;
        for (const std::vector<char32_t> &run : runs) {
            const int gram = run.size() < 2 ? 1 : 2;
            for (size_t i = 0; i + gram <= run.size(); ++i) {
                const uint32_t list = Find(&run[i], gram);
                if (list == 0)
                    return; // a run no text contains
                lists.push_back(list);
            }
        }
        std::sort(lists.begin(), lists.end());
        lists.erase(std::unique(lists.begin(), lists.end()), lists.end());
        for (uint32_t l : lists)
            m_lists[l].Normalize();
        std::sort(lists.begin(), lists.end(), [this](uint32_t a, uint32_t b) {
            return m_lists[a].count < m_lists[b].count;
        });

        const Posting &smallest = m_lists[lists[0]];
        candidates.reserve(smallest.count);
        smallest.ForEach([&candidates](int id) {
            candidates.push_back(id);
            return true;
        });
        for (size_t li = 1; li < lists.size(); ++li) {
            const Posting &next = m_lists[lists[li]];
            // Once few candidates are left, reading their texts beats decoding a long list.
            if (candidates.size() * 64 < next.count)
                break;
            size_t keep = 0;
            size_t at = 0;
            next.ForEach([&](int id) {
                while (at < candidates.size() && candidates[at] < id)
                    ++at;
                if (at == candidates.size())
                    return false;
                if (candidates[at] == id)
                    candidates[keep++] = candidates[at++];
                return true;
            });
            candidates.resize(keep);
            if (candidates.empty())
                return;
        }
    }

    if (!verify) {
        ids.swap(candidates);
        return;
    }

    const bool plain = !checkShape && runs.size() == 1;
    std::string needle;
    if (plain) {
        for (char32_t c : runs[0])
            detail::AppendUtf8(needle, c);
    } else {
        pattern.insert(pattern.begin(), '*');
        pattern.push_back('*');
    }
    const IdRun *run = m_runs.data();
    const IdRun *const runsEnd = run + m_runs.size();
    for (int id : candidates) {
        run = FindRun(run, runsEnd, id);
        if (run == runsEnd)
            break;
        if (run->id != id)
            continue;
        const std::string_view texts(m_chars.data() + run->begin, run->end - run->begin);
        bool hit = false;
        if (plain) {
            hit = texts.find(needle) != std::string_view::npos;
        } else {
            for (size_t at = 0; !hit && at < texts.size();) {
                const size_t stop = texts.find(kTextEnd, at);
                hit = detail::WildcardMatch(pattern.data(), pattern.size(), texts.data() + at, stop - at);
                at = stop + 1;
            }
        }
        if (hit)
            ids.push_back(id);
    }
}

QuickSearch::QuickSearch()
    : d(new Impl)
{
}

QuickSearch::~QuickSearch() = default;

void QuickSearch::ClearAllData()
{
    d->Clear();
}

void QuickSearch::InsertSearchIndex(const std::wstring &text, int id)
{
    d->Insert(text, id);
}

void QuickSearch::Search(const std::wstring &key, std::vector<int> &ids) const
{
    d->Search(key, ids);
}

bool QuickSearch::AnswersExactly() const
{
    return true;
}

std::size_t QuickSearch::TextCount() const
{
    d->SortTexts();
    return d->m_texts.size();
}

std::size_t QuickSearch::MemoryUsage() const
{
    return d->Bytes();
}

} // namespace search
