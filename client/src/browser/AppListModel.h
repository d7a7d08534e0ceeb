#pragma once

#include "browser/PictureLoader.h"

#include <QtCore/QAbstractListModel>
#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QSharedPointer>
#include <QtGui/QPixmap>

class TLPluginBaseEntity;
class TLPluginBaseManager;

/// The apps that are offered to the user, in the operator's order; follows the app list. Icons are fetched
/// when they are first asked for.
class AppListModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    static constexpr int ServiceCodeRole = Qt::UserRole;

    /// `apps` may be null and outlives the model; `loadPicture` may be empty.
    AppListModel(TLPluginBaseManager* apps, const PictureLoader& loadPicture, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    void Reset();
    QPixmap GetIcon(int row) const;

    TLPluginBaseManager* m_apps;
    PictureLoader m_loadPicture;
    QList<QSharedPointer<TLPluginBaseEntity>> m_offered;
    QPixmap m_defaultIcon;
    mutable QHash<QString, QPixmap> m_icons; // by address; null while one is being fetched
};
