// The check table's filter against a keyword index of the test's own: this program
// links its own search::QuickSearch, which takes the place of the text engine's (the
// services are replaceable by design), records what the model files and asks, and
// answers with whatever ids a test sets. That shows what the model does with an index
// that over-reports, answers out of order or names rows that do not exist.
#include "check_table_rows.h"

#include "textengine/quick_search.h"

#include <QTest>

#include <map>
#include <set>

namespace {

struct Service {
    bool scripted = false;            // answer with `answer` instead of every id
    std::vector<int> answer;
    std::map<int, std::set<std::wstring>> filed;
    int clears = 0;
    int inserts = 0;
    int searches = 0;
    std::wstring lastKey;
};
Service service;

} // namespace

namespace search {

class QuickSearch::Impl
{
};

QuickSearch::QuickSearch() = default;
QuickSearch::~QuickSearch() = default;

void QuickSearch::ClearAllData()
{
    ++service.clears;
    service.filed.clear();
}

void QuickSearch::InsertSearchIndex(const std::wstring &text, int id)
{
    ++service.inserts;
    service.filed[id].insert(text);
}

// Unscripted, it over-reports on purpose: every id filed, whatever the key.
void QuickSearch::Search(const std::wstring &key, std::vector<int> &ids) const
{
    ++service.searches;
    service.lastKey = key;
    ids.clear();
    if (service.scripted) {
        ids = service.answer;
        return;
    }
    for (const auto &entry : service.filed)
        ids.push_back(entry.first);
}

// It only pre-selects, so the model has to confirm every id.
bool QuickSearch::AnswersExactly() const
{
    return false;
}

std::size_t QuickSearch::TextCount() const
{
    return 0;
}

std::size_t QuickSearch::MemoryUsage() const
{
    return 0;
}

} // namespace search

namespace {

struct Table {
    Table()
    {
        service = Service();
        model.SetHorizontalHeaderLabels({"Code", "Name", "Chinese"});
        model.SetCheckableColumn(Qt::UserRole + 100, 0);
        model.SetSourceData({MakeRow("pa", {"601318", " Ping An ", "中国平安"}), MakeRow("yh", {"601166", "Bank", "银行"}),
                             MakeRow("cj", {"600900", "Yangtze", "长江电力"}), MakeRow("q", {"000007", "Quan", "全新好"})});
    }
    CMultiCheckBoxModel model{1.0f, nullptr};
};

} // namespace

class TstCheckTableSearchService : public QObject
{
    Q_OBJECT
private slots:
    void filesTrimmedUpperTextsAndPhoneticPieces()
    {
        Table t;
        QCOMPARE(service.clears, 1);
        const std::set<std::wstring> &first = service.filed.at(0);
        for (const wchar_t *text : {L"601318", L"PING AN", L"中国平安", L"ZHONGGUOPINGAN", L"ZGPA", L"PINGAN"})
            QVERIFY2(first.count(text), QString::fromWCharArray(text).toUtf8());
        for (const wchar_t *text : {L"YINHANG", L"YINXING", L"YH", L"YX"})
            QVERIFY2(service.filed.at(1).count(text), QString::fromWCharArray(text).toUtf8());
        QCOMPARE(int(service.filed.size()), 4);
    }

    // Keys go to the index trimmed and upper-cased; keystrokes reuse the index as built,
    // an empty keyword shows all without asking, and any data change builds it anew.
    void keystrokesUseTheIndexAsBuilt()
    {
        Table t;
        const int inserts = service.inserts;
        for (const wchar_t *key : {L"Z", L"ZG", L"ZGP", L"  zgpa ", L"平安"})
            t.model.FilterDataByKeyWord(key);
        QCOMPARE(service.lastKey, std::wstring(L"平安"));
        QCOMPARE(service.inserts, inserts);
        QCOMPARE(service.clears, 1);
        QCOMPARE(service.searches, 5);
        t.model.FilterDataByKeyWord(L"  zgpa ");
        QCOMPARE(service.lastKey, std::wstring(L"ZGPA"));
        t.model.FilterDataByKeyWord(L"");
        QCOMPARE(service.searches, 6);
        QCOMPARE(Shown(t.model).size(), 4);
        t.model.FilterDataByKeyWord(L"zgpa");
        t.model.AddRowItem(MakeRow("new", {"688001"}));
        QCOMPARE(service.clears, 2); // one row added costs a whole new index
        QCOMPARE(int(service.filed.size()), 5);
        QCOMPARE(Shown(t.model), QStringList({"pa"})); // still filtered by the keyword
    }

    // The index only pre-selects: what it over-reports is checked and dropped.
    void overReportedRowsAreDropped_data()
    {
        QTest::addColumn<QString>("keyword");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("initials") << "zgpa" << QStringList{"pa"};
        QTest::newRow("a reading of 银行") << "YX" << QStringList{"yh"};
        QTest::newRow("words with a gap") << "ping  an" << QStringList{"pa"};
        QTest::newRow("wildcard") << "6?1" << QStringList{"pa", "yh"};
        QTest::newRow("none") << "XXXX" << QStringList{};
    }
    void overReportedRowsAreDropped()
    {
        QFETCH(QString, keyword);
        QFETCH(QStringList, expected);
        Table t;
        t.model.FilterDataByKeyWord(keyword.toStdWString());
        QCOMPARE(Shown(t.model), expected);
    }

    void answerOrderKeptAndStrayIdsSkipped()
    {
        Table t;
        service.scripted = true;
        service.answer = {3, -1, 1, 99, 0, 4};
        t.model.FilterDataByKeyWord(L"6");
        // "q" (id 3) has no 6 in any text and is dropped by the check.
        QCOMPARE(Shown(t.model), QStringList({"yh", "pa"}));
        t.model.FilterDataByKeyWord(L" ");
        QCOMPARE(Shown(t.model), QStringList({"q", "yh", "pa"}));
        service.answer = {};
        t.model.FilterDataByKeyWord(L"6");
        QCOMPARE(Shown(t.model), QStringList());
    }
};

QTEST_MAIN(TstCheckTableSearchService)
#include "tst_check_table_search_service.moc"
