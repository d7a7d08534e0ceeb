#include "recovery/EarlierTabStore.h"

#include "TabSetText.h"

#include "settings-store/VXSettingManager.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>

namespace {

const QString Section = QStringLiteral("CLIENT");
const QString ListField = QStringLiteral("EARLIER_TABS");
const QString SlotKey = QStringLiteral("slot");
const QString FateKey = QStringLiteral("fate");

struct Entry
{
    int slot;
    EarlierTabStore::Fate fate;
};

QString SlotField(int slot)
{
    return QStringLiteral("EARLIER_TABS_%1").arg(slot);
}

QString GetValue(const QString& field)
{
    return VXSettingManager::Instance()->GetUserValue(Section, field);
}

void SetValue(const QString& field, const QString& value)
{
    VXSettingManager::Instance()->SetUserValue(Section, field, value);
}

EarlierTabStore::Fate ToFate(int number)
{
    const bool known = number >= 0 && number <= static_cast<int>(EarlierTabStore::Fate::NotWhole);
    return known ? static_cast<EarlierTabStore::Fate>(number) : EarlierTabStore::Fate::Dropped;
}

bool Has(const QVector<Entry>& entries, int slot)
{
    return std::any_of(entries.begin(), entries.end(), [slot](const Entry& e) { return e.slot == slot; });
}

/// The newest first. A list that cannot be read is made up for by the slots themselves.
QVector<Entry> ReadList()
{
    QVector<Entry> entries;
    const QJsonArray array = QJsonDocument::fromJson(GetValue(ListField).toUtf8()).array();
    for (const QJsonValue& value : array) {
        const QJsonObject entry = value.toObject();
        const int slot = entry.value(SlotKey).toInt(-1);
        if (slot >= 0 && slot < EarlierTabStore::Limit && !Has(entries, slot)) {
            entries.append({slot, ToFate(entry.value(FateKey).toInt())});
        }
    }
    for (int slot = 0; slot < EarlierTabStore::Limit; ++slot) {
        if (!Has(entries, slot) && !GetValue(SlotField(slot)).isEmpty()) {
            entries.append({slot, EarlierTabStore::Fate::Dropped});
        }
    }
    return entries;
}

void WriteList(const QVector<Entry>& entries)
{
    QJsonArray array;
    for (const Entry& entry : entries) {
        array.append(QJsonObject{{SlotKey, entry.slot}, {FateKey, static_cast<int>(entry.fate)}});
    }
    SetValue(ListField, QString::fromUtf8(QJsonDocument(array).toJson(QJsonDocument::Compact)));
}

int ChooseSlot(QVector<Entry>* entries, const QString& text)
{
    const auto same = std::find_if(entries->begin(), entries->end(), [&text](const Entry& entry) {
        return GetValue(SlotField(entry.slot)) == text;
    });
    if (same != entries->end()) {
        const int slot = same->slot;
        entries->erase(same);
        return slot;
    }
    if (entries->size() >= EarlierTabStore::Limit) {
        return entries->takeLast().slot;
    }
    int slot = 0;
    while (Has(*entries, slot)) {
        ++slot;
    }
    return slot;
}

} // namespace

void EarlierTabStore::Add(const QString& text, Fate fate)
{
    QVector<Entry> entries = ReadList();
    const int slot = ChooseSlot(&entries, text);
    SetValue(SlotField(slot), text);
    entries.prepend({slot, fate});
    WriteList(entries);
}

QVector<EarlierTabStore::Set> EarlierTabStore::GetSets()
{
    QVector<Set> sets;
    const QVector<Entry> entries = ReadList();
    for (const Entry& entry : entries) {
        const TabSetText::Reading reading = TabSetText::Read(GetValue(SlotField(entry.slot)));
        if (!reading.tabs.tabs.isEmpty()) {
            sets.append({entry.fate, reading.whole, reading.tabs});
        }
    }
    return sets;
}
