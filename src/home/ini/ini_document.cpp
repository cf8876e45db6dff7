#include "home/ini/ini_document.h"

#include <SimpleIni.h>

#include "automation/code_page.h"
#include "automation/run_time_error.h"

namespace home {
namespace {

struct IgnoringCase {
    bool operator()(const char* left, const char* right) const {
        return automation::to_lower(left) < automation::to_lower(right);
    }
};

using SimpleIni = CSimpleIniTempl<char, IgnoringCase, SI_ConvertA<char>>;

}  // namespace

struct IniDocument::Settings {
    SimpleIni ini;
};

IniDocument::IniDocument(std::string_view settings_text) : settings_(std::make_unique<Settings>()) {
    settings_->ini.SetMultiKey(false);
    settings_->ini.SetMultiLine(false);
    settings_->ini.SetQuotes(false);
    if (settings_->ini.LoadData(settings_text.data(), settings_text.size()) < 0) {
        throw automation::RunTimeError(automation::ErrorNumber::OutOfMemory);
    }
}

IniDocument::IniDocument(IniDocument&&) noexcept = default;
IniDocument& IniDocument::operator=(IniDocument&&) noexcept = default;
IniDocument::~IniDocument() = default;

std::optional<std::string> IniDocument::value(std::string_view section,
                                              std::string_view key) const {
    const char* value =
        settings_->ini.GetValue(std::string(section).c_str(), std::string(key).c_str());
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

std::vector<IniDocument::Entry> IniDocument::entries(std::string_view section) const {
    const std::string name(section);
    SimpleIni::TNamesDepend keys;
    settings_->ini.GetAllKeys(name.c_str(), keys);
    keys.sort(SimpleIni::Entry::LoadOrder());
    std::vector<Entry> entries;
    for (const SimpleIni::Entry& key : keys) {
        entries.emplace_back(key.pItem, settings_->ini.GetValue(name.c_str(), key.pItem, ""));
    }
    return entries;
}

}  // namespace home
