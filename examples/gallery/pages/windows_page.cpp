// Frameless windows: a title bar with every button as a preview, and buttons that open
// a message box, a resizable form and a window that can be pinned on top.

#include "shared/gallery_page.h"
#include "shared/gallery_theme.h"

#include <KelvoControl.h>
#include <window/frameless_widget.h>
#include <window/title_bar.h>

#include <memory>

using GalleryTheme::Text;

namespace {

TLabel *MakeText(float scale, wchar_t const *key)
{
    auto *label = new TLabel(scale, Text(key), nullptr);
    label->setWordWrap(true);
    return label;
}

// A content widget with the padding a dialog body needs.
TWidget *MakeBody(float scale, QWidget *inner)
{
    auto *body = new TWidget(scale, nullptr);
    auto *layout = new TVBoxLayout(scale, nullptr);
    layout->setContentsMargins(20, 16, 20, 0);
    body->setLayout(layout);
    layout->addWidget(inner, 0, Qt::Alignment());
    return body;
}

TFramelessWidget *MakeWindow(float scale, QWidget *owner, wchar_t const *titleKey, CTitleBar::WindowFlags flags)
{
    auto *window = new TFramelessWidget(scale, owner);
    window->SetTitleName(Text(titleKey));
    window->SetWindowFlags(flags);
    return window;
}

// Shows which result a window came back with, or that it was closed without one.
void ReportResult(TFramelessWidget *window, TLabel *result)
{
    auto answered = std::make_shared<bool>(false);
    QObject::connect(window, &TFramelessWidget::MessageCompleted, result,
                     [window, result, answered](TFramelessWidget::ResultASK ask) {
                         *answered = true;
                         result->setText(Text(ask == TFramelessWidget::ResultAskOk ? L"gallery_windows_result_ok"
                                                                                  : L"gallery_windows_result_cancel"));
                         window->close();
                     });
    QObject::connect(window, &QObject::destroyed, result, [result, answered] {
        if (!*answered)
            result->setText(Text(L"gallery_windows_result_closed"));
    });
}

void OpenMessageBox(float scale, QWidget *owner, TLabel *result)
{
    TFramelessWidget *box = MakeWindow(scale, owner, L"gallery_windows_message_title", CTitleBar::WindowFlagClose);
    box->SetOperateFlags(TFramelessWidget::OperateFlagOk | TFramelessWidget::OperateFlagCancel);
    box->SetContentWidget(MakeBody(scale, MakeText(scale, L"gallery_windows_message_text")));
    box->SetWidgetResizable(false);
    ReportResult(box, result);
    box->AdjustHeight(320);
    box->show();
}

void OpenForm(float scale, QWidget *owner, TLabel *result)
{
    TFramelessWidget *form = MakeWindow(scale, owner, L"gallery_windows_form_title", CTitleBar::WindowFlagClose);
    form->SetOperateFlags(TFramelessWidget::OperateFlagOk | TFramelessWidget::OperateFlagCancel);
    TWidget *fields = nullptr;
    auto *rows = MakeGalleryColumn(scale, 8, fields);
    wchar_t const *captions[] = {L"gallery_sample_symbol", L"gallery_sample_price", L"gallery_sample_quantity"};
    char const *values[] = {"600036", "35.42", "1000"};
    for (int i = 0; i < 3; ++i) {
        auto *row = new THBoxLayout(scale, nullptr);
        row->setSpacing(8);
        auto *caption = new TLabel(scale, Text(captions[i]), nullptr);
        caption->setFixedWidth(70);
        auto *edit = new TLineEdit(scale, nullptr);
        edit->setText(QString::fromLatin1(values[i]));
        edit->setFixedHeight(26);
        row->addWidget(caption, 0, Qt::Alignment());
        row->addWidget(edit, 1, Qt::Alignment());
        rows->addLayout(row, 0);
    }
    rows->addStretch(1);
    form->SetContentWidget(MakeBody(scale, fields));
    form->SetWidgetResizable(true);
    ReportResult(form, result);
    form->resize(DpiTool::Physical(QSize(360, 230), scale));
    form->show();
}

void OpenPinned(float scale, QWidget *owner)
{
    TFramelessWidget *pinned = MakeWindow(scale, owner, L"gallery_windows_pinned_title",
                                          CTitleBar::WindowFlagTop | CTitleBar::WindowFlagClose);
    pinned->SetContentWidget(MakeBody(scale, MakeText(scale, L"gallery_windows_pinned_text")));
    pinned->AdjustHeight(300);
    pinned->show();
}

QWidget *MakePreview(float scale, TLabel *result)
{
    auto *frame = new TFrame(scale, nullptr);
    frame->setObjectName(QStringLiteral("GalleryWindowPreview"));
    frame->setFrameShape(QFrame::Box);
    frame->setFixedWidth(480);
    auto *layout = new TVBoxLayout(scale, nullptr);
    layout->setMargin(1);
    layout->setSpacing(0);
    frame->setLayout(layout);
    auto *bar = new CTitleBar(scale, nullptr);
    bar->SetName(Text(L"gallery_windows_preview_title"));
    bar->SetWindowFlag(CTitleBar::WindowFlags(0x7f));
    QObject::connect(bar, &CTitleBar::ButtonClicked, result, [bar, result](CTitleBar::WindowFlag flag) {
        TToolButton *button = bar->GetButtonByFlag(flag);
        result->setText(Text(L"gallery_windows_clicked").arg(button ? button->objectName() : QString()));
    });
    layout->addWidget(bar, 0, Qt::Alignment());
    auto *body = MakeText(scale, L"gallery_windows_preview_body");
    body->setFixedHeight(60);
    layout->addWidget(MakeBody(scale, body), 0, Qt::Alignment());
    return frame;
}

QWidget *MakeWindowsPage(float scale)
{
    TWidget *page = nullptr;
    TVBoxLayout *layout = MakeGalleryPage(scale, L"gallery_windows_intro", page);

    auto *result = new TLabel(scale, Text(L"gallery_windows_result_none"), nullptr);
    result->setObjectName(QStringLiteral("GalleryNote"));

    layout->addWidget(MakeGallerySection(scale, Text(L"gallery_windows_title_bar"), MakePreview(scale, result)), 0,
                      Qt::Alignment());

    TWidget *row = nullptr;
    auto *buttons = MakeGalleryRow(scale, 8, row);
    auto addButton = [&](wchar_t const *key, auto open) {
        auto *button = new TPushButton(scale, Text(key), nullptr);
        button->setFixedSize(130, 28);
        QObject::connect(button, &TPushButton::clicked, page, open);
        buttons->addWidget(button, 0, Qt::Alignment());
    };
    // The page's scale at the click: the Scale menu re-scales pages in place.
    addButton(L"gallery_windows_open_message", [page, result] { OpenMessageBox(page->GetScale(), page, result); });
    addButton(L"gallery_windows_open_form", [page, result] { OpenForm(page->GetScale(), page, result); });
    addButton(L"gallery_windows_open_pinned", [page] { OpenPinned(page->GetScale(), page); });
    buttons->addSpacing(8);
    buttons->addWidget(result, 0, Qt::Alignment());
    buttons->addStretch(1);
    layout->addWidget(MakeGallerySection(scale, Text(L"gallery_windows_dialogs"), row), 0, Qt::Alignment());
    layout->addStretch(1);
    return page;
}

GalleryPageRegistrar const registrar({40, QStringLiteral("windows"), L"gallery_page_windows", MakeWindowsPage});

} // namespace
