#pragma once

#include "monitoring/MonitorEvent.h"

#include <QtCore/QAbstractTableModel>
#include <QtCore/QVector>

/// Recorded events, the newest first.
class MonitorEventModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit MonitorEventModel(QObject* parent = nullptr);
    ~MonitorEventModel() override;

    /// The oldest first.
    void SetEvents(const QVector<MonitorEvent>& events);
    /// After a change of the language.
    void Retranslate();

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    QVector<MonitorEvent> m_events;
};
