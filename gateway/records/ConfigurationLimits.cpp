#include "records/ConfigurationLimits.h"

#include "base/Text.h"
#include "json/InvalidInput.h"

#include <algorithm>
#include <map>
#include <string_view>

namespace TLGateway {

namespace {

[[noreturn]] void Refuse(const std::string& path, const std::string& problem)
{
    throw InvalidInput(InvalidInput::Rule::Limit, path + ": " + problem);
}

std::string ElementPath(const std::string& listPath, std::size_t index)
{
    return listPath + "[" + std::to_string(index) + "]";
}

void CheckCount(std::size_t count, std::size_t limit, const std::string& path)
{
    if (count > limit) {
        Refuse(path, std::to_string(count) + " entries exceed the limit of " + std::to_string(limit));
    }
}

void CheckLength(const std::string& text, std::size_t least, std::size_t most, const std::string& path)
{
    const std::size_t length = CountCodePoints(text);
    if (length > most) {
        Refuse(path, std::to_string(length) + " characters exceed the limit of " + std::to_string(most) +
                         " characters");
    }
    if (length < least) {
        Refuse(path, "is empty; the limit is " + std::to_string(least) + " to " + std::to_string(most) +
                         " characters");
    }
}

void CheckTexts(const AutoRunEntry& entry, std::size_t leastUrlLength, const std::string& path)
{
    CheckLength(entry.itemId, 1, MaxItemIdLength, path + ".itemId");
    CheckLength(entry.name, 0, MaxNameLength, path + ".name");
    CheckLength(entry.url, leastUrlLength, MaxUrlLength, path + ".url");
}

void CheckTypeRange(const AutoRunEntry& entry, const std::string& path)
{
    if (entry.type < 0 || entry.type > MaxEntryType) {
        Refuse(path + ".type", "not within the limit of 0 to " + std::to_string(MaxEntryType));
    }
}

void CheckNoSystemEntry(const AutoRunEntry& entry, const std::string& path)
{
    if (entry.systemItem) {
        Refuse(path + ".systemItem", "must be false outside systemItems");
    }
}

// Calls visit(entry, path) for every entry of the three lists.
template <typename Visit>
void ForEachEntry(const AutoRunConfiguration& configuration, const std::string& path, Visit visit)
{
    const auto walk = [&visit](const std::vector<AutoRunEntry>& entries, const std::string& listPath) {
        for (std::size_t i = 0; i < entries.size(); ++i) {
            visit(entries[i], ElementPath(listPath, i));
        }
    };
    walk(configuration.systemItems, path + ".systemItems");
    walk(configuration.customItems, path + ".customItems");
    walk(configuration.pluginItems, path + ".pluginItems");
}

void CheckUniqueIds(const AutoRunConfiguration& configuration, const std::string& path)
{
    std::map<std::string_view, std::string> seen;
    ForEachEntry(configuration, path, [&seen](const AutoRunEntry& entry, const std::string& entryPath) {
        const auto [position, isNew] = seen.try_emplace(entry.itemId, entryPath);
        if (!isNew) {
            Refuse(entryPath + ".itemId", "itemId must be unique in the configuration, but " +
                                              position->second + " has " + Quoted(entry.itemId) + " too");
        }
    });
}

void CheckOneActive(const AutoRunConfiguration& configuration, const std::string& path)
{
    std::string first;
    ForEachEntry(configuration, path, [&first](const AutoRunEntry& entry, const std::string& entryPath) {
        if (!entry.activeItem) {
            return;
        }
        if (!first.empty()) {
            Refuse(entryPath + ".activeItem",
                   "the limit is 1 entry with activeItem in the configuration, and " + first + " has it too");
        }
        first = entryPath;
    });
}

} // namespace

void CheckLimits(const AutoRunConfiguration& configuration, ConfigurationSource source,
                 const std::string& path)
{
    const bool byOperator = source == ConfigurationSource::Operator;
    CheckCount(configuration.systemItems.size(), MaxSystemEntries, path + ".systemItems");
    CheckCount(configuration.customItems.size(), MaxCustomEntries, path + ".customItems");
    CheckCount(configuration.pluginItems.size(), MaxAppEntries, path + ".pluginItems");

    for (std::size_t i = 0; i < configuration.systemItems.size(); ++i) {
        const AutoRunEntry& entry = configuration.systemItems[i];
        const std::string entryPath = ElementPath(path + ".systemItems", i);
        CheckTexts(entry, byOperator ? 1 : 0, entryPath);
        CheckTypeRange(entry, entryPath);
        if (byOperator && !entry.systemItem) {
            Refuse(entryPath + ".systemItem", "must be true in systemItems");
        }
    }
    for (std::size_t i = 0; i < configuration.customItems.size(); ++i) {
        const AutoRunEntry& entry = configuration.customItems[i];
        const std::string entryPath = ElementPath(path + ".customItems", i);
        CheckTexts(entry, 1, entryPath);
        CheckTypeRange(entry, entryPath);
        CheckNoSystemEntry(entry, entryPath);
        if (entry.type == AppEntryType) {
            Refuse(entryPath + ".type", "must not be 1 in customItems; the limit is 0 to 99 without 1");
        }
    }
    for (std::size_t i = 0; i < configuration.pluginItems.size(); ++i) {
        const AutoRunEntry& entry = configuration.pluginItems[i];
        const std::string entryPath = ElementPath(path + ".pluginItems", i);
        CheckTexts(entry, 1, entryPath);
        CheckNoSystemEntry(entry, entryPath);
        if (entry.type != AppEntryType) {
            Refuse(entryPath + ".type", "must be 1 in pluginItems");
        }
    }
    CheckUniqueIds(configuration, path);
    CheckOneActive(configuration, path);
}

AutoRunConfiguration ApplyUsersWrite(const AutoRunConfiguration& stored,
                                     const AutoRunConfiguration& requested, const std::string& path)
{
    AutoRunConfiguration result;
    result.systemItems = stored.systemItems;
    result.customItems = requested.customItems;
    result.pluginItems = requested.pluginItems;
    for (const AutoRunEntry& wanted : requested.systemItems) {
        const auto own =
            std::find_if(result.systemItems.begin(), result.systemItems.end(),
                         [&wanted](const AutoRunEntry& entry) { return entry.itemId == wanted.itemId; });
        if (own != result.systemItems.end()) {
            own->checked = wanted.checked;
            own->activeItem = wanted.activeItem;
        }
    }
    CheckUniqueIds(result, path);
    CheckOneActive(result, path);
    return result;
}

} // namespace TLGateway
