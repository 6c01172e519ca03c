// A client of the installed package: one include, one target, and a few calls that
// need each service library and the controls to be really there.
#include <KelvoControl/KelvoControl.h>

#include <QApplication>

#include <cstdio>
#include <string>

int main(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_DisableHighDpiScaling);
    QApplication app(argc, argv);
    nbase::auto_executor_mgr::instance().runAfterLaunchExecutors();

    TWidget window(1.5f, nullptr);
    auto *layout = new TVBoxLayout(1.5f, nullptr);
    window.setLayout(layout);
    auto *button = new TPushButton(1.5f, QStringLiteral("OK"), nullptr);
    button->setFixedSize(10, 10);
    layout->addWidget(button, 0, Qt::Alignment());
    auto *spin = new CTradeSpinBox(1.5f, nullptr);
    spin->SetStep(Json::Number(5, 2));
    layout->addWidget(spin, 0, Qt::Alignment());
    GetDPIHelper()->SetWindowScale(&window, 2.0f);

    int failures = 0;
    auto check = [&failures](bool ok, char const *what) {
        if (!ok) {
            std::fprintf(stderr, "consumer: %s\n", what);
            ++failures;
        }
    };
    check(button->size() == QSize(20, 20), "a T button follows the window's scale");
    check(std::string(spin->GetStep().ToString()) == "0.05", "Json::Number prints its step");
    check(!GetSkinHelper()->GetColorText(L"common", L"text_color").empty(), "the skin tables are in the package");
    check(std::wstring(LoadXmlString(L"KVS_MGSBOX_OK")) != L"KVS_MGSBOX_OK", "the language tables are in the package");
    check(!PyNameMgr::GetInstance()->GetInitialSpell(L"\u94f6\u884c", 0).empty(), "the pinyin table is in the package");
    check(IpcClientSdk::SetActive(), "the client SDK answers");
    log_output(nullptr, 20000, __FILE__, __LINE__, "main", "consumer ran");
    if (failures == 0)
        std::puts("consumer: ok");
    return failures;
}
