#include "qtcomm/skin_helper.h"

#include "qtcomm/table_support.h"

#include <QColor>
#include <QString>

#include <json/json.h>

#include <map>
#include <memory>
#include <unordered_map>
#include <utility>

IChangeSkinCall::~IChangeSkinCall() = default;
IStorageSkinHelper::~IStorageSkinHelper() = default;

namespace {

using Group = std::unordered_map<std::wstring, std::wstring>;
using Table = std::unordered_map<std::wstring, Group>;

// A callback that keeps switching the skin from inside ChangedSkin would loop for ever.
constexpr int kMaxDeliveryRounds = 8;

// An object of objects of strings, or nothing. jsoncpp throws when nesting runs too
// deep, so the parse is fenced.
bool ParseSkinTable(std::string const &json, Table *table, std::string *error)
{
    Json::CharReaderBuilder builder;
    Json::CharReaderBuilder::strictMode(&builder.settings_);
    // Comments document a table. Refusing them is no option either: with comments off,
    // jsoncpp reads "{/* x */ ...}" as an empty object without reporting an error.
    builder.settings_["allowComments"] = true;
    builder.settings_["collectComments"] = false;
    std::unique_ptr<Json::CharReader> const reader(builder.newCharReader());
    // jsoncpp takes a NUL byte for the end of the text and would quietly drop the rest.
    if (json.find('\0') != std::string::npos) {
        *error = "the text holds a NUL byte";
        return false;
    }
    Json::Value root;
    try {
        if (!reader->parse(json.data(), json.data() + json.size(), &root, error))
            return false;
    } catch (std::exception const &e) {
        *error = e.what();
        return false;
    }
    if (!root.isObject()) {
        *error = "the top level is not an object of groups";
        return false;
    }
    Table result;
    for (auto group = root.begin(); group != root.end(); ++group) {
        if (!group->isObject()) {
            *error = "group \"" + group.name() + "\" is not an object";
            return false;
        }
        Group &entries = result[qtcomm_detail::ToWide(group.name())];
        for (auto entry = group->begin(); entry != group->end(); ++entry) {
            if (!entry->isString()) {
                *error = "entry \"" + group.name() + "/" + entry.name() + "\" is not a string";
                return false;
            }
            entries[qtcomm_detail::ToWide(entry.name())] = qtcomm_detail::ToWide(entry->asString());
        }
    }
    *table = std::move(result);
    return true;
}

class SkinStorage final : public IStorageSkinHelper
{
public:
    SkinStorage()
    {
        LoadBuiltIn(Skin::SKIN_LIGHT, QStringLiteral(":/skins/light.json"));
        LoadBuiltIn(Skin::SKIN_DARK, QStringLiteral(":/skins/dark.json"));
    }

    Skin::SKIN_TYPE const *GetCurrentSkin() const override { return &m_current; }

    std::wstring GetColorText(std::wstring const &group, std::wstring const &key) const override
    {
        std::wstring const *text = Find(group, key);
        return text ? *text : std::wstring();
    }

    std::wstring GetColorString(std::wstring const &key) const override
    {
        static std::wstring const defaultGroup = L"common";
        return GetColorText(defaultGroup, key);
    }

    unsigned int GetColorValue(std::wstring const &group, std::wstring const &key) const override
    {
        std::wstring const *text = Find(group, key);
        if (!text)
            return 0;
        QColor const color(QString::fromStdWString(*text));
        return color.isValid() ? color.rgba() : 0;
    }

    std::wstring GetImagePath(std::wstring const &group, std::wstring const &key) const override
    {
        return GetColorText(group, key);
    }

    void AddChangeSkinCall(IChangeSkinCall *call, Skin::SkinCallPriority priority) override
    {
        if (!call || m_keyOf.count(call))
            return;
        Key const key{int(priority), m_nextSerial++};
        m_calls.emplace(key, call);
        m_keyOf.emplace(call, key);
    }

    void RemoveChangeSkinCall(IChangeSkinCall *call, Skin::SkinCallPriority) override
    {
        auto const it = m_keyOf.find(call);
        if (it == m_keyOf.end())
            return;
        m_calls.erase(it->second);
        m_keyOf.erase(it);
    }

    bool LoadSkinTable(Skin::SKIN_TYPE type, std::string const &json) override
    {
        Table table;
        std::string error;
        if (!ParseSkinTable(json, &table, &error)) {
            qtcomm_detail::LogRefusedTable(__FILE__, __LINE__, "IStorageSkinHelper::LoadSkinTable",
                                           QStringLiteral("skin table for skin %1 refused, the table in force stays: %2")
                                               .arg(int(type))
                                               .arg(QString::fromStdString(error).section(QLatin1Char('\n'), 0, 0).trimmed()));
            return false;
        }
        m_tables[int(type)] = std::move(table);
        return true;
    }

    bool SwitchSkin(Skin::SKIN_TYPE type) override
    {
        if (!m_tables.count(int(type)))
            return false;
        m_current = type;
        if (m_delivering) {
            m_switchAgain = true; // the running delivery starts over with the new skin
            return true;
        }
        m_delivering = true;
        int rounds = 0;
        do {
            m_switchAgain = false;
            Deliver(m_current);
        } while (m_switchAgain && ++rounds < kMaxDeliveryRounds);
        m_delivering = false;
        return true;
    }

    std::vector<Skin::SKIN_TYPE> GetLoadedSkins() const override
    {
        std::vector<Skin::SKIN_TYPE> skins;
        for (auto const &table : m_tables)
            skins.push_back(Skin::SKIN_TYPE(table.first));
        return skins;
    }

private:
    // Smaller priority first, then registration order.
    using Key = std::pair<int, unsigned long long>;

    std::wstring const *Find(std::wstring const &group, std::wstring const &key) const
    {
        auto const table = m_tables.find(int(m_current));
        if (table == m_tables.end())
            return nullptr;
        auto const entries = table->second.find(group);
        if (entries == table->second.end())
            return nullptr;
        auto const text = entries->second.find(key);
        return text == entries->second.end() ? nullptr : &text->second;
    }

    void Deliver(Skin::SKIN_TYPE type)
    {
        // A snapshot, checked against the live list before each call: callbacks may
        // add or remove callbacks (themselves included) while this runs.
        std::vector<std::pair<Key, IChangeSkinCall *>> const snapshot(m_calls.begin(), m_calls.end());
        for (auto const &entry : snapshot) {
            auto const live = m_calls.find(entry.first);
            if (live == m_calls.end() || live->second != entry.second)
                continue;
            try {
                entry.second->ChangedSkin(type);
            } catch (...) {
                // One failing callback must not keep the others on the old skin.
            }
        }
    }

    void LoadBuiltIn(Skin::SKIN_TYPE type, QString const &path)
    {
        std::string text;
        if (qtcomm_detail::ReadBuiltInTable(path, &text))
            LoadSkinTable(type, text);
    }

    std::map<int, Table> m_tables;
    Skin::SKIN_TYPE m_current = Skin::SKIN_LIGHT;
    std::map<Key, IChangeSkinCall *> m_calls;
    std::unordered_map<IChangeSkinCall *, Key> m_keyOf;
    unsigned long long m_nextSerial = 1;
    bool m_delivering = false;
    bool m_switchAgain = false;
};

} // namespace

IStorageSkinHelper *GetSkinHelper()
{
    // Never destroyed: controls with static storage unregister during exit.
    static SkinStorage *const helper = new SkinStorage;
    return helper;
}
