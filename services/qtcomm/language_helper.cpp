#include "qtcomm/language_helper.h"

#include "qtcomm/table_support.h"

#include <QCoreApplication>
#include <QEvent>
#include <QXmlStreamReader>

#include <map>
#include <unordered_map>
#include <unordered_set>
#include <utility>

IStorageLanguageHelper::~IStorageLanguageHelper() = default;

namespace {

// Every text handed out by LoadXmlString lives here until the process ends. Leaked on
// purpose, so that texts stay valid during static destruction too.
wchar_t const *Intern(std::wstring const &text)
{
    static auto *const pool = new std::unordered_set<std::wstring>;
    return pool->insert(text).first->c_str();
}

struct Entry
{
    std::wstring text;
    mutable wchar_t const *interned = nullptr;
};

struct LanguageTable
{
    std::string name;
    std::unordered_map<std::wstring, Entry> entries;
};

// The table format:
//
//   <?xml version="1.0" encoding="UTF-8"?>
//   <strings language="en_US">
//       <string key="KVS_SETTING">Settings</string>
//       ...
//   </strings>
//
// The root is <strings>; its optional attribute "language" names the language. Each
// <string> needs a non-empty "key" and holds plain text (entities and character
// references allowed, no child elements); a later duplicate key wins. Other elements
// under the root are skipped, so newer tables still load. A DTD is refused, which also
// rules out entity expansion.
bool ParseLanguageTable(std::string const &xml, LanguageTable *table, QString *error)
{
    QXmlStreamReader reader(QByteArray::fromRawData(xml.data(), int(xml.size())));
    LanguageTable result;
    bool sawRoot = false;
    while (!reader.atEnd()) {
        QXmlStreamReader::TokenType const token = reader.readNext();
        if (token == QXmlStreamReader::DTD) {
            *error = QStringLiteral("a DTD is not allowed");
            return false;
        }
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (!sawRoot) {
            if (reader.name() != QLatin1String("strings")) {
                *error = QStringLiteral("the root element is <%1>, not <strings>").arg(reader.name());
                return false;
            }
            sawRoot = true;
            result.name = reader.attributes().value(QLatin1String("language")).toString().toStdString();
            continue;
        }
        if (reader.name() != QLatin1String("string")) {
            reader.skipCurrentElement();
            continue;
        }
        QString const key = reader.attributes().value(QLatin1String("key")).toString();
        int const line = int(reader.lineNumber());
        QString const text = reader.readElementText(QXmlStreamReader::ErrorOnUnexpectedElement);
        if (reader.hasError())
            break;
        if (key.isEmpty()) {
            *error = QStringLiteral("a <string> without key on line %1").arg(line);
            return false;
        }
        result.entries[key.toStdWString()] = Entry{text.toStdWString()};
    }
    if (reader.hasError()) {
        *error = QStringLiteral("line %1, column %2: %3")
                     .arg(reader.lineNumber())
                     .arg(reader.columnNumber())
                     .arg(reader.errorString());
        return false;
    }
    if (!sawRoot) {
        *error = QStringLiteral("no <strings> element");
        return false;
    }
    *table = std::move(result);
    return true;
}

std::string BuiltInName(int language)
{
    switch (language) {
    case Language::LANGUAGE_ZH_CN:
        return "zh_CN";
    case Language::LANGUAGE_EN_US:
        return "en_US";
    default:
        return std::string();
    }
}

class LanguageStorage final : public IStorageLanguageHelper
{
public:
    LanguageStorage()
    {
        LoadBuiltIn(Language::LANGUAGE_ZH_CN, QStringLiteral(":/lang/zh_CN.xml"));
        LoadBuiltIn(Language::LANGUAGE_EN_US, QStringLiteral(":/lang/en_US.xml"));
    }

    int GetCurrentLanguage() const override { return m_current; }

    std::string GetLanguageName(int language) const override
    {
        auto const table = m_tables.find(language);
        if (table != m_tables.end() && !table->second.name.empty())
            return table->second.name;
        return BuiltInName(language);
    }

    bool LoadLanguageTable(int language, std::string const &xml) override
    {
        LanguageTable table;
        QString error;
        if (!ParseLanguageTable(xml, &table, &error)) {
            qtcomm_detail::LogRefusedTable(__FILE__, __LINE__, "IStorageLanguageHelper::LoadLanguageTable",
                                           QStringLiteral("language table for language %1 refused, the table in force stays: %2")
                                               .arg(language)
                                               .arg(error));
            return false;
        }
        m_tables[language] = std::move(table);
        return true;
    }

    bool SwitchLanguage(int language) override
    {
        if (!m_tables.count(language))
            return false;
        m_current = language;
        std::vector<int> ids;
        for (auto const &call : m_calls)
            ids.push_back(call.first);
        for (int id : ids) {
            auto const call = m_calls.find(id);
            if (call == m_calls.end())
                continue;
            // A copy: the callback may remove itself, which destroys the stored function.
            std::function<void(int)> const function = call->second;
            try {
                function(language);
            } catch (...) {
                // The remaining listeners still deserve the news.
            }
        }
        if (QCoreApplication *app = QCoreApplication::instance()) {
            QEvent change(QEvent::LanguageChange);
            QCoreApplication::sendEvent(app, &change);
        }
        return true;
    }

    std::vector<int> GetLoadedLanguages() const override
    {
        std::vector<int> languages;
        for (auto const &table : m_tables)
            languages.push_back(table.first);
        return languages;
    }

    bool FindText(std::wstring const &key, std::wstring *text) const override
    {
        Entry const *entry = Find(key);
        if (entry && text)
            *text = entry->text;
        return entry != nullptr;
    }

    int AddLanguageChangedCall(std::function<void(int)> call) override
    {
        if (!call)
            return 0;
        int const id = m_nextId++;
        m_calls.emplace(id, std::move(call));
        return id;
    }

    void RemoveLanguageChangedCall(int id) override { m_calls.erase(id); }

    wchar_t const *Lookup(wchar_t const *key) const
    {
        std::wstring const wanted(key);
        Entry const *entry = Find(wanted);
        if (!entry)
            return Intern(wanted);
        if (!entry->interned)
            entry->interned = Intern(entry->text);
        return entry->interned;
    }

private:
    Entry const *Find(std::wstring const &key) const
    {
        auto const table = m_tables.find(m_current);
        if (table == m_tables.end())
            return nullptr;
        auto const entry = table->second.entries.find(key);
        return entry == table->second.entries.end() ? nullptr : &entry->second;
    }

    void LoadBuiltIn(int language, QString const &path)
    {
        std::string text;
        if (qtcomm_detail::ReadBuiltInTable(path, &text))
            LoadLanguageTable(language, text);
    }

    std::map<int, LanguageTable> m_tables;
    int m_current = Language::LANGUAGE_EN_US;
    std::map<int, std::function<void(int)>> m_calls;
    int m_nextId = 1;
};

LanguageStorage *Storage()
{
    // Never destroyed, like the texts it hands out.
    static LanguageStorage *const storage = new LanguageStorage;
    return storage;
}

} // namespace

IStorageLanguageHelper *GetLanguageHelper()
{
    return Storage();
}

wchar_t const *LoadXmlString(wchar_t const *key)
{
    if (!key)
        return L"";
    return Storage()->Lookup(key);
}
