// Skin tables from outside: any text either loads as a table or is refused, and a
// loaded table answers lookups.
#include "qtcomm_fuzz_input.h"

#include "qtcomm/skin_helper.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size)
{
    IStorageSkinHelper *skin = GetSkinHelper();
    if (skin->LoadSkinTable(Skin::SKIN_USER, QtCommFuzzInput(data, size)) && skin->SwitchSkin(Skin::SKIN_USER)) {
        skin->GetColorText(L"common", L"text_color");
        skin->GetColorValue(L"common", L"text_color");
        skin->GetImagePath(L"common", L"refresh");
        skin->SwitchSkin(Skin::SKIN_LIGHT);
    }
    return 0;
}
