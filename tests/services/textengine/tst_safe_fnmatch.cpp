#include "textengine/safe_fnmatch.h"

#include <QTest>

#include <cstring>
#include <memory>
#include <string>

namespace {

// Copies s into a heap block of exactly its size, with no terminating NUL, so that a read
// past the end leaves the allocation (AddressSanitizer reports it).
std::unique_ptr<char[]> Exact(const QByteArray &s)
{
    std::unique_ptr<char[]> block(new char[size_t(s.size()) + (s.isEmpty() ? 1 : 0)]);
    std::memcpy(block.get(), s.constData(), size_t(s.size()));
    return block;
}

bool Match(const QByteArray &pattern, const QByteArray &text)
{
    const auto p = Exact(pattern);
    const auto t = Exact(text);
    return search::SafeFNMatch(p.get(), unsigned(pattern.size()), t.get(), unsigned(text.size()));
}

} // namespace

class TestSafeFNMatch : public QObject
{
    Q_OBJECT

private slots:
    void grammar_data();
    void grammar();
    void lengthsAreTheBounds();
    void everyPrefixStaysInBounds();
    void nullAndEmpty();
    void manyStarsStayFast();
};

void TestSafeFNMatch::grammar_data()
{
    QTest::addColumn<QByteArray>("pattern");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("match");

    QTest::newRow("literal") << QByteArray("ABC") << QByteArray("ABC") << true;
    QTest::newRow("whole text only") << QByteArray("ABC") << QByteArray("ABCD") << false;
    QTest::newRow("case sensitive") << QByteArray("abc") << QByteArray("ABC") << false;
    QTest::newRow("star empty") << QByteArray("*") << QByteArray("") << true;
    QTest::newRow("star inside") << QByteArray("*ZG*PA*") << QByteArray("XZGYYPA") << true;
    QTest::newRow("order matters") << QByteArray("*PA*ZG*") << QByteArray("ZGPA") << false;
    QTest::newRow("backtrack") << QByteArray("*AB") << QByteArray("AAAB") << true;
    QTest::newRow("backtrack twice") << QByteArray("*A*AB") << QByteArray("XAYAAB") << true;
    QTest::newRow("star cannot skip tail") << QByteArray("*AB") << QByteArray("ABA") << false;
    QTest::newRow("question") << QByteArray("A?C") << QByteArray("ABC") << true;
    QTest::newRow("question needs one") << QByteArray("A?C") << QByteArray("AC") << false;
    QTest::newRow("question is a whole utf8 char") << QByteArray("?行") << QByteArray("银行") << true;
    QTest::newRow("question is not a byte") << QByteArray("???") << QByteArray("银") << false;
    QTest::newRow("class") << QByteArray("[abc]x") << QByteArray("bx") << true;
    QTest::newRow("class miss") << QByteArray("[abc]x") << QByteArray("dx") << false;
    QTest::newRow("range") << QByteArray("[a-c][0-9]") << QByteArray("c7") << true;
    QTest::newRow("range end") << QByteArray("[a-c]") << QByteArray("d") << false;
    QTest::newRow("reversed range empty") << QByteArray("[c-a]") << QByteArray("b") << false;
    QTest::newRow("negated bang") << QByteArray("[!x]") << QByteArray("y") << true;
    QTest::newRow("negated bang miss") << QByteArray("[!x]") << QByteArray("x") << false;
    QTest::newRow("negated caret") << QByteArray("[^a-z]") << QByteArray("Q") << true;
    QTest::newRow("negated caret miss") << QByteArray("[^a-z]") << QByteArray("q") << false;
    QTest::newRow("bracket first member") << QByteArray("[]a]") << QByteArray("]") << true;
    QTest::newRow("bracket after bang") << QByteArray("[!]]") << QByteArray("]") << false;
    QTest::newRow("dash first") << QByteArray("[-a]") << QByteArray("-") << true;
    QTest::newRow("dash last") << QByteArray("[a-]") << QByteArray("-") << true;
    QTest::newRow("utf8 class") << QByteArray("[银行]") << QByteArray("行") << true;
    QTest::newRow("utf8 class miss") << QByteArray("[银行]") << QByteArray("长") << false;
    QTest::newRow("escaped star") << QByteArray("A\\*") << QByteArray("A*") << true;
    QTest::newRow("escaped star literal") << QByteArray("A\\*") << QByteArray("AB") << false;
    QTest::newRow("escaped question") << QByteArray("\\?") << QByteArray("X") << false;
    QTest::newRow("escaped letter") << QByteArray("\\A") << QByteArray("A") << true;
    QTest::newRow("escape in class") << QByteArray("[\\]x]") << QByteArray("]") << true;
    QTest::newRow("escaped dash no range") << QByteArray("[a\\-c]") << QByteArray("b") << false;
    QTest::newRow("trailing backslash") << QByteArray("A\\") << QByteArray("A\\") << true;
    QTest::newRow("unclosed bracket literal") << QByteArray("[AB") << QByteArray("[AB") << true;
    QTest::newRow("unclosed bracket no class") << QByteArray("[AB") << QByteArray("A") << false;
    QTest::newRow("empty brackets literal") << QByteArray("[]") << QByteArray("[]") << true;
    QTest::newRow("stray byte matches itself") << QByteArray("A\xff") << QByteArray("A\xff") << true;
    QTest::newRow("stray byte is one char") << QByteArray("A?B") << QByteArray("A\xe9" "B") << true;
    QTest::newRow("truncated utf8 text") << QByteArray("*") << QByteArray("\xe9\x93") << true;
    QTest::newRow("embedded NUL") << QByteArray("A\0?", 3) << QByteArray("A\0B", 3) << true;
}

void TestSafeFNMatch::grammar()
{
    QFETCH(QByteArray, pattern);
    QFETCH(QByteArray, text);
    QFETCH(bool, match);
    QCOMPARE(Match(pattern, text), match);
}

void TestSafeFNMatch::lengthsAreTheBounds()
{
    // What lies past a length does not count, NUL or not.
    const char pattern[] = "AB*CD";
    const char text[] = "ABXCDE";
    QVERIFY(search::SafeFNMatch(pattern, 2, text, 2));         // "AB" / "AB"
    QVERIFY(!search::SafeFNMatch(pattern, 2, text, 3));        // "AB" / "ABX"
    QVERIFY(search::SafeFNMatch(pattern, 3, text, 6));         // "AB*"
    QVERIFY(search::SafeFNMatch(pattern, 5, text, 5));         // "AB*CD" / "ABXCD"
    QVERIFY(!search::SafeFNMatch(pattern, 5, text, 4));        // text cut before D
    QVERIFY(!search::SafeFNMatch("[ab]", 3, "a", 1));          // "[ab" is no class
    QVERIFY(search::SafeFNMatch("[ab]", 3, "[ab", 3));
    QVERIFY(search::SafeFNMatch("\\*", 1, "\\", 1));           // the escape is cut off
    QVERIFY(!search::SafeFNMatch("\xe9\x93\xb6", 3, "\xe9\x93\xb6", 2)); // 银 cut short
}

void TestSafeFNMatch::everyPrefixStaysInBounds()
{
    // Cut pattern and text at every byte, even inside a class, an escape or a UTF-8
    // sequence: each cut is a new exact-size block, so any over-read is caught.
    const QByteArray pattern("*[!\\]a-c]\\*?[银-行]\\");
    const QByteArray text("x]*z银\\");
    int matched = 0;
    for (int p = 0; p <= pattern.size(); ++p)
        for (int t = 0; t <= text.size(); ++t)
            matched += Match(pattern.left(p), text.left(t)) ? 1 : 0;
    QVERIFY(matched > 0);
    QVERIFY(Match("*", text));
}

void TestSafeFNMatch::nullAndEmpty()
{
    QVERIFY(search::SafeFNMatch(nullptr, 0, nullptr, 0));
    QVERIFY(search::SafeFNMatch(nullptr, 5, "", 0)); // a null pattern is empty
    QVERIFY(!search::SafeFNMatch(nullptr, 5, "A", 1));
    QVERIFY(search::SafeFNMatch("*", 1, nullptr, 9));
    QVERIFY(!search::SafeFNMatch("?", 1, nullptr, 9));
    QVERIFY(search::SafeFNMatch("", 0, "", 0));
    QVERIFY(!search::SafeFNMatch("", 0, "A", 1));
}

void TestSafeFNMatch::manyStarsStayFast()
{
    // A matcher that recurses at each star takes exponential time here; this one does
    // pattern length times text length steps at most, so the test ends at once.
    const QByteArray text(20000, 'a');
    QVERIFY(!Match(QByteArray("*a").repeated(30) + "b", text));
    QVERIFY(Match(QByteArray("*a").repeated(30) + "*", text));
    QVERIFY(Match(QByteArray("*?").repeated(40) + "a", text));
}

QTEST_GUILESS_MAIN(TestSafeFNMatch)
#include "tst_safe_fnmatch.moc"
