// An order ticket of 200 rows in spin-box mode:
// - ours: TDisplayInfomationItem rows (caption, CTradeSpinBox with its step buttons and
//   unit label, the hidden menu button) in a TVBoxLayout;
// - stock: QLabel + QDoubleSpinBox rows in a QFormLayout.
// Timed: building and showing the window until its layouts have run; and for ours the
// re-scale of the shown window from 1.0 to 2.0 (and back), with and without the layout
// pass that follows. Memory per row comes from the heap in use before and after a build.
#include "trade/display_infomation_item.h"
#include "trade/trade_spin_box.h"

#include "uilib/box_layout.h"
#include "uilib/dpi_helper.h"
#include "uilib/widget.h"

#include <QApplication>
#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QFormLayout>
#include <QLabel>

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

int const kRows = 200;
int const kRounds = 15;

void Settle()
{
    for (int i = 0; i < 3; ++i)
        QApplication::processEvents();
}

std::unique_ptr<QWidget> BuildOurs(bool show)
{
    auto window = std::make_unique<TWidget>(1.0f);
    auto *column = new TVBoxLayout(1.0f, nullptr);
    column->setContentsMargins(8, 8, 8, 8);
    column->setSpacing(4);
    window->setLayout(column);
    for (int i = 0; i < kRows; ++i) {
        auto *row = new TDisplayInfomationItem(1.0f, nullptr, MainLayoutHorizontal, QStringLiteral("Price %1").arg(i),
                                               ContentSpinBox, SpinBoxMenuNone);
        row->SetContentText(QStringLiteral("35.42"));
        column->addWidget(row, 0, Qt::Alignment());
    }
    if (show) {
        window->show();
        Settle();
    }
    return window;
}

std::unique_ptr<QWidget> BuildStock(bool show)
{
    auto window = std::make_unique<QWidget>();
    auto *form = new QFormLayout(window.get());
    form->setContentsMargins(8, 8, 8, 8);
    form->setSpacing(4);
    for (int i = 0; i < kRows; ++i) {
        auto *spin = new QDoubleSpinBox;
        spin->setDecimals(2);
        spin->setSingleStep(0.01);
        spin->setRange(0.0, 1e9);
        spin->setValue(35.42);
        spin->setFixedHeight(24);
        auto *label = new QLabel(QStringLiteral("Price %1").arg(i));
        label->setFixedSize(70, 24);
        form->addRow(label, spin);
    }
    if (show) {
        window->show();
        Settle();
    }
    return window;
}

double Median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

std::size_t HeapInUse()
{
    struct mallinfo2 const info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

using Builder = std::unique_ptr<QWidget> (*)(bool show);

// Milliseconds of one build until shown and laid out.
double TimeBuild(Builder build)
{
    QElapsedTimer timer;
    timer.start();
    std::unique_ptr<QWidget> window = build(true);
    double const ms = double(timer.nsecsElapsed()) / 1e6;
    window.reset();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return ms;
}

struct Heap {
    double built;
    double shown;
};

// Heap growth per row of one build, before and after it was shown (a shown window adds
// its backing store and the polish of every widget).
Heap MeasureHeap(Builder build)
{
    malloc_trim(0);
    std::size_t const before = HeapInUse();
    std::unique_ptr<QWidget> window = build(false);
    std::size_t const built = HeapInUse();
    window->show();
    Settle();
    std::size_t const shown = HeapInUse();
    return {double(built - before) / kRows, double(shown - before) / kRows};
}

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QCoreApplication::setAttribute(Qt::AA_DisableHighDpiScaling);
    QApplication app(argc, argv);
    // The offscreen platform warns at every window size constraint; keep the table readable.
    qInstallMessageHandler([](QtMsgType, QMessageLogContext const &, QString const &) {});

    // Warm up fonts, styles and the DPI service once for both.
    BuildOurs(true).reset();
    BuildStock(true).reset();

    // Alternating, so that a busy machine weighs on both alike.
    std::vector<double> oursMs;
    std::vector<double> stockMs;
    for (int i = 0; i < kRounds; ++i) {
        oursMs.push_back(TimeBuild(BuildOurs));
        stockMs.push_back(TimeBuild(BuildStock));
    }
    double const ours = Median(oursMs);
    double const stock = Median(stockMs);
    std::printf("build + show %d rows   ours %8.3f ms | stock %8.3f ms | ratio %.2f\n", kRows, ours, stock,
                ours / stock);
    Heap const oursHeap = MeasureHeap(BuildOurs);
    Heap const stockHeap = MeasureHeap(BuildStock);
    std::printf("heap per row, built    ours %8.0f B  | stock %8.0f B  | ratio %.2f\n", oursHeap.built,
                stockHeap.built, oursHeap.built / stockHeap.built);
    std::printf("heap per row, shown    ours %8.0f B  | stock %8.0f B  | ratio %.2f\n", oursHeap.shown,
                stockHeap.shown, oursHeap.shown / stockHeap.shown);

    std::unique_ptr<QWidget> window = BuildOurs(true);
    auto rescale = [&window](bool withLayout) {
        std::vector<double> times;
        for (int i = 0; i < kRounds; ++i) {
            for (float s : {2.0f, 1.0f}) {
                QElapsedTimer timer;
                timer.start();
                GetDPIHelper()->SetWindowScale(window.get(), s);
                if (withLayout)
                    window->layout()->activate();
                times.push_back(double(timer.nsecsElapsed()) / 1e6);
            }
        }
        return Median(times);
    };
    std::printf("re-scale 1.0 <-> 2.0           %8.3f ms (median; target < 16 ms)\n", rescale(false));
    std::printf("re-scale + layout pass         %8.3f ms\n", rescale(true));
    // With an application sheet the window is restyled at each change of scale: that part
    // is Qt's style sheet machinery polishing every widget again.
    GetDPIHelper()->SetApplicationStyleSheet(QStringLiteral(
        "QLineEdit { border: 1px solid #DCE0E6; padding: 0px 6px; font-size: 12px; }"
        "#DisplayItemName { color: #646A73; font-size: 12px; }"
        "#SpinBoxUpButton, #SpinBoxDownButton { border: none; }"));
    Settle();
    double const withSheet = rescale(true);
    // Qt's part alone: the window's own sheet set again, as a change of scale must.
    std::vector<double> restyle;
    for (int i = 0; i < kRounds; ++i) {
        QString const sheet = window->styleSheet();
        QElapsedTimer timer;
        timer.start();
        window->setStyleSheet(sheet + QLatin1Char(' '));
        window->layout()->activate();
        restyle.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::printf("re-scale + layout, with sheet  %8.3f ms | of which Qt's restyle alone %8.3f ms\n", withSheet,
                Median(restyle));
    return 0;
}
