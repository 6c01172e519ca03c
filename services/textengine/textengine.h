#pragma once
// KelvoTextEngine: the text services behind keyword filters — pinyin forms of names
// (PyNameMgr), a keyword index (search::QuickSearch) and a bounded wildcard matcher
// (search::SafeFNMatch).
#include "textengine/py_name_mgr.h"
#include "textengine/quick_search.h"
#include "textengine/safe_fnmatch.h"
