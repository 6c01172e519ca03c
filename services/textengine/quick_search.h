#pragma once
// QuickSearch: an in-memory keyword index over short texts (names, codes, their pinyin
// forms), each filed under an integer id, that answers a typed key with the ids of the
// texts that contain it, fast enough for every keystroke on a million rows.
//
// Use it as the pre-selection of a keyword filter: insert every searchable text of each
// row under the row's number, then on each keystroke ask Search and check only the ids
// it returns.
//
// What Search answers:
// - the ids of which at least one text matches the pattern "*key*" in the grammar of
//   SafeFNMatch, with ASCII letters compared without regard to case and each blank of
//   the key read as "*". For a key without wildcards that is plain containment:
//   "ZG" finds "ZGPA" and "600036" is found by "003";
// - a backslash that ends the key is dropped (it escapes nothing);
// - each id once, in ascending order; an empty key (or one of blanks and stars only)
//   answers every id that has a text, even an empty one.
//
// Cost: every character of a text and every pair of neighbours has a compressed,
// sorted list of the ids that contain it. A key of one or two characters is answered
// straight from one list; a longer key intersects the lists of its pairs, smallest
// first, and then checks the candidates against their texts, all texts of an id in one
// pass. Pairs rather than triples keep a build of a hundred thousand rows' texts in a
// few dozen milliseconds, at the price of more candidates for longer keys.
//
// Ids may be inserted in any order and any number of times; inserting ids in
// ascending order, all texts of an id together, is the fast path. Not thread-safe:
// use one instance from one thread.
#include "textengine/kelvotextengine_export.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace search {

class KELVOTEXTENGINE_EXPORT QuickSearch
{
public:
    QuickSearch();
    ~QuickSearch();
    QuickSearch(const QuickSearch &) = delete;
    QuickSearch &operator=(const QuickSearch &) = delete;

    // Forgets every text and id.
    void ClearAllData();
    // Files text under id. The same text twice under one id is kept once.
    void InsertSearchIndex(const std::wstring &text, int id);
    // Replaces the contents of ids with the answer for key (see above).
    void Search(const std::wstring &key, std::vector<int> &ids) const;
    // Whether Search answers exactly as described above, so that a caller need not
    // confirm its ids against the texts it filed. True for this index; a stand-in that
    // only pre-selects (any superset of the answer will do for a filter) says false.
    bool AnswersExactly() const;

    // Number of distinct texts held, counted per id.
    std::size_t TextCount() const;
    // Bytes held by the index, for measurements.
    std::size_t MemoryUsage() const;

private:
    class Impl;
    std::unique_ptr<Impl> d;
};

} // namespace search
