// Keyword index against a linear scan: builds search::QuickSearch over 10k, 100k and 1M
// stock-like rows (a code, a Chinese name, an English name and the name's pinyin forms,
// all upper-cased as a keyword filter stores them) and times each key both ways.
//
//   textengine_search [max rows]    (default 1000000)
#include "textengine/py_name_mgr.h"
#include "textengine/quick_search.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

struct Row {
    int id;
    std::wstring text;
};

const QString kHan = QStringLiteral(
    "中国平安招商银行工商建设农业交通光大民生兴业浦发华夏北京上海深圳广州天津重庆长江"
    "电力能源科技信息网络软件通信电子医药生物健康食品饮料酒业汽车机械重工钢铁有色金属"
    "煤炭石油化工材料地产建筑证券保险基金信托航空船舶港口物流传媒文化旅游酒店乐视东方"
    "南方西部新华大众海通国泰君安中信万科茅台五粮美的格力");
const char *const kWords[] = {"CHINA", "MERCHANTS", "BANK", "PING", "AN", "INSURANCE",
                              "GROUP", "HOLDINGS", "ENERGY", "TECH", "POWER", "MOTOR",
                              "STEEL", "PHARMA", "SECURITIES", "LIFE", "NEW", "EAST",
                              "SOUTH", "CAPITAL", "INDUSTRIAL", "MEDIA", "CO", "LTD"};
const char *const kPrefixes[] = {"600", "601", "603", "000", "002", "300", "688"};
const QStringList kKnown = {QStringLiteral("中国平安"), QStringLiteral("招商银行"),
                            QStringLiteral("长江电力"), QStringLiteral("中国国贸")};

std::vector<Row> MakeRows(int count)
{
    QRandomGenerator rng(20240601);
    std::vector<Row> rows;
    rows.reserve(size_t(count) * 6);
    PyNameMgr *py = PyNameMgr::GetInstance();
    for (int id = 0; id < count; ++id) {
        const QString code = QString::fromLatin1(kPrefixes[rng.bounded(7)])
            + QStringLiteral("%1").arg(id % 1000, 3, 10, QLatin1Char('0'));
        QString name;
        if (id % 500 == 0) // some real names among the random ones, so long keys hit too
            name = kKnown[(id / 500) % kKnown.size()];
        for (int i = 0, n = name.isEmpty() ? 2 + int(rng.bounded(3)) : 0; i < n; ++i)
            name += kHan[int(rng.bounded(kHan.size()))];
        QStringList english;
        for (int i = 0, n = 2 + int(rng.bounded(2)); i < n; ++i)
            english << QString::fromLatin1(kWords[rng.bounded(24)]);

        rows.push_back({id, code.toStdWString()});
        rows.push_back({id, name.toStdWString()});
        rows.push_back({id, english.join(' ').toStdWString()});
        const std::wstring wname = name.toStdWString();
        for (const std::wstring &forms :
             {py->GetFullSpell(wname.c_str(), 0), py->GetInitialSpell(wname.c_str(), 0)}) {
            for (const QString &piece :
                 QString::fromStdWString(forms).split(' ', Qt::SkipEmptyParts))
                rows.push_back({id, piece.toStdWString()});
        }
    }
    return rows;
}

double Ms(qint64 ns)
{
    return double(ns) / 1e6;
}

} // namespace

int main(int argc, char **argv)
{
    const int maxRows = argc > 1 ? std::max(1, std::atoi(argv[1])) : 1000000;
    const QStringList keys = {"Z", "ZG", "ZGP", "ZGPA", QStringLiteral("银行"), "007"};

    for (int count : {10000, 100000, 1000000}) {
        if (count > maxRows)
            break;
        QElapsedTimer timer;
        timer.start();
        const std::vector<Row> rows = MakeRows(count);
        const double makeMs = Ms(timer.nsecsElapsed());

        // The stock way: every row's texts as QStrings, scanned with QString::contains.
        std::vector<std::pair<int, QString>> plain;
        plain.reserve(rows.size());
        for (const Row &r : rows)
            plain.emplace_back(r.id, QString::fromStdWString(r.text));

        search::QuickSearch index;
        timer.restart();
        for (const Row &r : rows)
            index.InsertSearchIndex(r.text, r.id);
        const double buildMs = Ms(timer.nsecsElapsed());
        std::vector<int> warm;
        index.Search(L"", warm); // settles the lazily sorted text list outside the timing

        std::printf("\n%d rows, %zu texts (made with pinyin forms in %.0f ms)\n", count,
                    rows.size(), makeMs);
        std::printf("  index build %.1f ms (%.1f ms per 100k texts), %.1f MB\n", buildMs,
                    buildMs * 100000.0 / double(rows.size()),
                    double(index.MemoryUsage()) / (1024.0 * 1024.0));
        std::printf("  %-8s %10s %12s %12s %9s\n", "key", "hits", "index ms", "scan ms",
                    "ratio");

        for (const QString &key : keys) {
            const std::wstring wkey = key.toStdWString();
            std::vector<int> ids;
            const int reps = count >= 1000000 ? 5 : 20;
            timer.restart();
            for (int i = 0; i < reps; ++i)
                index.Search(wkey, ids);
            const double indexMs = Ms(timer.nsecsElapsed()) / reps;

            std::vector<int> scanned;
            const int scanReps = count >= 1000000 ? 2 : 5;
            timer.restart();
            for (int i = 0; i < scanReps; ++i) {
                scanned.clear();
                for (const auto &p : plain)
                    if ((scanned.empty() || scanned.back() != p.first)
                        && p.second.contains(key, Qt::CaseSensitive))
                        scanned.push_back(p.first);
            }
            const double scanMs = Ms(timer.nsecsElapsed()) / scanReps;
            if (scanned != ids) {
                std::printf("  MISMATCH for key %s: index %zu, scan %zu\n",
                            key.toUtf8().constData(), ids.size(), scanned.size());
                return 1;
            }
            std::printf("  %-8s %10zu %12.3f %12.3f %8.0fx\n", key.toUtf8().constData(),
                        ids.size(), indexMs, scanMs, scanMs / std::max(indexMs, 1e-6));
        }
    }
    return 0;
}
