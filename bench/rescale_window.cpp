// Re-scaling a window of N order-ticket rows (label, edit, button in a row layout
// inside a column layout) from 1.0 to 2.0 and back:
// - ours: SetScale on a window built from T classes;
// - stock, by hand: the same form in plain Qt, every size set again from a list of the
//   row pointers that the form kept (the least a hand-written form can do);
// - stock, rebuild: the plain form thrown away and built again at the new scale.
// Each is timed with and without the layout pass that follows (activate()).
#include "uilib/uilib.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

namespace {

int const kRows = 200;
int const kRounds = 20;

int Px(int logical, float scale)
{
    return DpiTool::Physical(logical, scale);
}

std::unique_ptr<TWidget> BuildScaled(float scale)
{
    auto window = std::make_unique<TWidget>(scale);
    auto *column = new TVBoxLayout(scale, window.get());
    column->setContentsMargins(8, 8, 8, 8);
    column->setSpacing(4);
    for (int i = 0; i < kRows; ++i) {
        auto *row = new THBoxLayout(scale, nullptr);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(6);
        auto *label = new TLabel(scale, QStringLiteral("Price %1").arg(i));
        label->setFixedWidth(80);
        auto *edit = new TLineEdit(scale);
        edit->setFixedHeight(24);
        edit->setTextMargins(4, 0, 4, 0);
        auto *button = new TPushButton(scale, QStringLiteral("Buy"));
        button->setFixedSize(60, 24);
        row->addWidget(label);
        row->addWidget(edit, 1);
        row->addWidget(button);
        column->addLayout(row);
    }
    return window;
}

struct PlainRow
{
    QHBoxLayout *row;
    QLabel *label;
    QLineEdit *edit;
    QPushButton *button;
};

struct PlainForm
{
    std::unique_ptr<QWidget> window;
    QVBoxLayout *column = nullptr;
    std::vector<PlainRow> rows;
};

void ApplyPlain(PlainForm &form, float s)
{
    form.column->setContentsMargins(Px(8, s), Px(8, s), Px(8, s), Px(8, s));
    form.column->setSpacing(Px(4, s));
    for (PlainRow const &r : form.rows) {
        r.row->setContentsMargins(0, 0, 0, 0);
        r.row->setSpacing(Px(6, s));
        r.label->setFixedWidth(Px(80, s));
        r.edit->setFixedHeight(Px(24, s));
        r.edit->setTextMargins(Px(4, s), 0, Px(4, s), 0);
        r.button->setFixedSize(Px(60, s), Px(24, s));
    }
}

PlainForm BuildPlain(float scale)
{
    PlainForm form;
    form.window = std::make_unique<QWidget>();
    form.column = new QVBoxLayout(form.window.get());
    for (int i = 0; i < kRows; ++i) {
        PlainRow r{new QHBoxLayout, new QLabel(QStringLiteral("Price %1").arg(i)), new QLineEdit,
                   new QPushButton(QStringLiteral("Buy"))};
        r.row->addWidget(r.label);
        r.row->addWidget(r.edit, 1);
        r.row->addWidget(r.button);
        form.column->addLayout(r.row);
        form.rows.push_back(r);
    }
    ApplyPlain(form, scale);
    form.window->show();
    return form;
}

// Average milliseconds of one re-scale, over rounds of 1.0 -> 2.0 -> 1.0.
double Time(std::function<void(float)> const &rescale)
{
    rescale(2.0f); // warm up caches and fonts
    rescale(1.0f);
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < kRounds; ++i) {
        rescale(2.0f);
        rescale(1.0f);
    }
    return double(timer.nsecsElapsed()) / 1e6 / (2 * kRounds);
}

void Report(char const *what, double ours, double handMade, double rebuild)
{
    std::printf("%-22s ours %8.3f ms | stock by hand %8.3f ms (ratio %.2f) | "
                "stock rebuild %8.3f ms (ratio %.2f)\n",
                what, ours, handMade, ours / handMade, rebuild, ours / rebuild);
}

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);

    // The offscreen platform warns at every window size constraint; keep the table readable.
    qInstallMessageHandler([](QtMsgType, QMessageLogContext const &, QString const &) {});

    std::unique_ptr<TWidget> scaled = BuildScaled(1.0f);
    PlainForm handMade = BuildPlain(1.0f);
    PlainForm rebuilt = BuildPlain(1.0f);
    scaled->show();
    QApplication::processEvents();

    for (bool withLayout : {false, true}) {
        double const ours = Time([&](float s) {
            scaled->SetScale(s);
            if (withLayout)
                scaled->layout()->activate();
        });
        double const byHand = Time([&](float s) {
            ApplyPlain(handMade, s);
            if (withLayout)
                handMade.window->layout()->activate();
        });
        double const rebuild = Time([&](float s) {
            rebuilt = BuildPlain(s);
            if (withLayout)
                rebuilt.window->layout()->activate();
        });
        Report(withLayout ? "rescale + layout pass" : "rescale", ours, byHand, rebuild);
    }
    std::printf("%d rows; ms per re-scale (1.0 -> 2.0 and back alike); ratio = ours / stock\n", kRows);
    return 0;
}
