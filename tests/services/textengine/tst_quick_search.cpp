#include "textengine/quick_search.h"
#include "textengine/safe_fnmatch.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <map>

using Ids = std::vector<int>;
Q_DECLARE_METATYPE(Ids)

namespace {

struct Row {
    int id;
    QString text;
};

// A few rows in the shapes the filter feeds: codes, names and their pinyin forms.
const std::vector<Row> kRows = {
    {0, "600036"},     {0, QStringLiteral("招商银行")}, {0, "ZHAOSHANGYINHANG"}, {0, "ZSYH"},
    {1, "000001"},     {1, QStringLiteral("平安银行")}, {1, "PINGANYINHANG"},    {1, "PAYH"},
    {2, "601318"},     {2, QStringLiteral("中国平安")}, {2, "ZHONGGUOPINGAN"},   {2, "ZGPA"},
    {3, "600900"},     {3, QStringLiteral("长江电力")}, {3, "CHANGJIANGDIANLI"}, {3, "CJDL"},
    {4, "AAPL"},       {4, "Apple Inc."},
    {5, "ABCXBCD"},
    {6, ""},
};

void Fill(search::QuickSearch &index, const std::vector<Row> &rows)
{
    for (const Row &r : rows)
        index.InsertSearchIndex(r.text.toStdWString(), r.id);
}

// The answer by definition: ids of which a text matches "*key*" (blanks as stars,
// ASCII folded), each once, ascending.
Ids Reference(const std::multimap<int, QString> &texts, const QString &key)
{
    QString k = key.toUpper();
    k.replace(' ', '*');
    int backslashes = 0; // an odd run at the end leaves one that escapes nothing
    while (backslashes < k.size() && k[k.size() - 1 - backslashes] == '\\')
        ++backslashes;
    if (backslashes % 2 == 1)
        k.chop(1);
    const QByteArray pattern = ('*' + k + '*').toUtf8();
    Ids ids;
    for (const auto &entry : texts) {
        const QByteArray t = entry.second.toUpper().toUtf8();
        if ((ids.empty() || ids.back() != entry.first)
            && search::SafeFNMatch(pattern.constData(), unsigned(pattern.size()), t.constData(),
                                   unsigned(t.size())))
            ids.push_back(entry.first);
    }
    return ids;
}

} // namespace

class TestQuickSearch : public QObject
{
    Q_OBJECT

private slots:
    void answers_data();
    void answers();
    void clearForgetsEverything();
    void duplicatesAndOrder();
    void matchesBruteForce_data();
    void matchesBruteForce();
};

void TestQuickSearch::answers_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<Ids>("ids");

    QTest::newRow("one letter") << "Z" << Ids{0, 2};
    QTest::newRow("two letters") << "ZG" << Ids{2};
    QTest::newRow("three letters") << "ZGP" << Ids{2};
    QTest::newRow("initials") << "ZGPA" << Ids{2};
    QTest::newRow("lower case key") << "zgpa" << Ids{2};
    QTest::newRow("lower case text") << "INC." << Ids{4};
    QTest::newRow("code fragment") << "003" << Ids{0};
    QTest::newRow("code fragment many") << "00" << Ids{0, 1, 3};
    QTest::newRow("chinese") << QStringLiteral("银行") << Ids{0, 1};
    QTest::newRow("chinese one char") << QStringLiteral("平") << Ids{1, 2};
    QTest::newRow("chinese long") << QStringLiteral("长江电力") << Ids{3};
    QTest::newRow("each id once") << "AN" << Ids{0, 1, 2, 3};
    QTest::newRow("all grams but not contiguous") << "ABCD" << Ids{};
    QTest::newRow("long key") << "ZHONGGUOPINGANYINHANG" << Ids{};
    QTest::newRow("longer than any text") << QString(40, 'A') << Ids{};
    QTest::newRow("unknown char") << QStringLiteral("鑫") << Ids{};
    QTest::newRow("empty key: every id") << "" << Ids{0, 1, 2, 3, 4, 5, 6};
    QTest::newRow("blank key: every id") << "   " << Ids{0, 1, 2, 3, 4, 5, 6};
    QTest::newRow("blank as star") << "ZG PA" << Ids{2};
    QTest::newRow("blank keeps order") << "PA ZG" << Ids{};
    QTest::newRow("words in one text") << "PING YIN" << Ids{1};
    QTest::newRow("star") << "6*36" << Ids{0};
    QTest::newRow("question") << "Z?PA" << Ids{2};
    QTest::newRow("question alone") << "?" << Ids{0, 1, 2, 3, 4, 5};
    QTest::newRow("class") << "[XY]INH" << Ids{0, 1};
    QTest::newRow("escaped star") << "\\*" << Ids{};
    QTest::newRow("trailing backslash dropped") << "ZSYH\\" << Ids{0};
}

void TestQuickSearch::answers()
{
    QFETCH(QString, key);
    QFETCH(Ids, ids);
    search::QuickSearch index;
    Fill(index, kRows);
    Ids got{42}; // Search replaces, not appends
    index.Search(key.toStdWString(), got);
    QCOMPARE(got, ids);
}

void TestQuickSearch::clearForgetsEverything()
{
    search::QuickSearch index;
    Fill(index, kRows);
    index.ClearAllData();
    Ids got;
    index.Search(L"", got);
    QVERIFY(got.empty());
    index.Search(L"ZG", got);
    QVERIFY(got.empty());
    QCOMPARE(index.TextCount(), size_t(0));

    index.InsertSearchIndex(L"ZGPA", 7); // usable again after clearing
    index.Search(L"GP", got);
    QCOMPARE(got, Ids{7});
}

void TestQuickSearch::duplicatesAndOrder()
{
    search::QuickSearch index;
    // Out of order, repeated, negative: still each id once, ascending.
    index.InsertSearchIndex(L"ABC", 9);
    index.InsertSearchIndex(L"XABC", 3);
    index.InsertSearchIndex(L"ABC", 9);
    index.InsertSearchIndex(L"ABCD", -4);
    index.InsertSearchIndex(L"abc", 3);
    index.InsertSearchIndex(L"ZZZ", 5);
    index.InsertSearchIndex(L"ABC", 9);
    QCOMPARE(index.TextCount(), size_t(5)); // the repeated (9, "ABC") counts once

    Ids got;
    index.Search(L"ABC", got);
    QCOMPARE(got, (Ids{-4, 3, 9}));
    index.Search(L"BCD", got);
    QCOMPARE(got, Ids{-4});
    index.Search(L"", got);
    QCOMPARE(got, (Ids{-4, 3, 5, 9}));

    index.InsertSearchIndex(L"ABC", 1); // after a search, inserting goes on working
    index.Search(L"AB", got);
    QCOMPARE(got, (Ids{-4, 1, 3, 9}));
}

void TestQuickSearch::matchesBruteForce_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<bool>("ascending");
    QTest::newRow("ascending ids") << 1u << true;
    QTest::newRow("ascending ids 2") << 2u << true;
    QTest::newRow("random ids") << 3u << false;
}

void TestQuickSearch::matchesBruteForce()
{
    // A small alphabet makes many texts share grams, so a wrong intersection, a lost
    // posting or a skipped check shows up as a difference from the definition.
    QFETCH(quint32, seed);
    QFETCH(bool, ascending);
    QRandomGenerator rng(seed);
    const QString alphabet = QStringLiteral("ABCab01银行长 ");
    auto randomText = [&](int maxLen) {
        QString s;
        const int len = int(rng.bounded(maxLen + 1));
        for (int i = 0; i < len; ++i)
            s += alphabet[int(rng.bounded(alphabet.size()))];
        return s;
    };

    search::QuickSearch index;
    std::multimap<int, QString> texts;
    for (int n = 0; n < 600; ++n) {
        const int id = ascending ? n / 3 : int(rng.bounded(300)) - 50;
        const QString text = randomText(9);
        index.InsertSearchIndex(text.toStdWString(), id);
        texts.emplace(id, text);
    }

    const QString keyAlphabet = alphabet + QStringLiteral("*?[]!-\\");
    for (int k = 0; k < 400; ++k) {
        QString key;
        const int len = int(rng.bounded(6));
        for (int i = 0; i < len; ++i)
            key += keyAlphabet[int(rng.bounded(keyAlphabet.size()))];
        Ids got;
        index.Search(key.toStdWString(), got);
        QCOMPARE(got, Reference(texts, key));
    }
}

QTEST_GUILESS_MAIN(TestQuickSearch)
#include "tst_quick_search.moc"
