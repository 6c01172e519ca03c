// Language tables from outside: any text either loads as a table or is refused, and a
// loaded table answers lookups.
#include "qtcomm_fuzz_input.h"

#include "qtcomm/language_helper.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size)
{
    IStorageLanguageHelper *language = GetLanguageHelper();
    int const custom = 100;
    if (language->LoadLanguageTable(custom, QtCommFuzzInput(data, size)) && language->SwitchLanguage(custom)) {
        std::wstring text;
        language->FindText(L"KVS_SETTING", &text);
        language->GetLanguageName(custom);
        language->SwitchLanguage(Language::LANGUAGE_EN_US);
    }
    return 0;
}
