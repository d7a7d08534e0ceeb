#pragma once

#include "EarlierTabSet.h"
#include "browser/PictureLoader.h"

#include <QtCore/QAbstractItemModel>
#include <QtCore/QHash>
#include <QtCore/QPersistentModelIndex>
#include <QtGui/QIcon>

#include <vector>

/// Sets of earlier tabs as a tree of two levels, with a check box for each tab and one with three states for
/// each set. Icons are fetched when they are first asked for, which is when their row comes into sight.
class EarlierTabsModel final : public QAbstractItemModel
{
    Q_OBJECT

public:
    /// The second line of a row.
    static constexpr int DetailRole = Qt::UserRole;

    /// `loadPicture` may be empty.
    EarlierTabsModel(const QVector<EarlierTabSet>& sets, const PictureLoader& loadPicture,
                     QObject* parent = nullptr);

    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// Ticks what is not fully ticked, and the other way round.
    void Toggle(const QModelIndex& index);
    int GetTickedCount() const noexcept;
    /// In the order of the rows.
    QVector<TabRecord> GetTicked() const;

    /// Retranslates all texts.
    void Retranslate();

    /// The moment in words: "Today at 14:05", or date and time of the local format.
    static QString GetWhenText(const QDateTime& when, const QDateTime& now);

Q_SIGNALS:
    void SigTickedChanged();

private:
    struct Row
    {
        TabRecord tab;
        bool ticked = false;
    };
    struct Set
    {
        QDateTime when;
        EarlierTabSet::Reason reason;
        bool incomplete;
        std::vector<Row> rows;
        int ticked = 0;
    };

    const Set& GetSet(const QModelIndex& index) const;
    QVariant GetSetData(const Set& set, int role) const;
    QVariant GetTabData(const Row& row, const QModelIndex& index, int role) const;
    QIcon GetIcon(const TabRecord& tab, const QModelIndex& index) const;
    void Tick(const QModelIndex& index, bool ticked);

    PictureLoader m_loadPicture;
    std::vector<Set> m_sets;
    int m_ticked = 0;
    QIcon m_pageIcon;
    QIcon m_appIcon;
    mutable QHash<QString, QIcon> m_icons; // by address; null while one is being fetched
    mutable QHash<QString, QVector<QPersistentModelIndex>> m_waiting; // rows, by the icon's address
};
