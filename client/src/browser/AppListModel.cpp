#include "AppListModel.h"

#include "look/LookResources.h"

#include "frame-data/TLPluginBaseEntity.h"
#include "frame-data/TLPluginBaseManager.h"

AppListModel::AppListModel(TLPluginBaseManager* apps, const PictureLoader& loadPicture, QObject* parent)
    : QAbstractListModel(parent), m_apps(apps), m_loadPicture(loadPicture)
{
    LookResources::Ensure();
    m_defaultIcon = QPixmap(QStringLiteral(":/images/default.png"));
    if (m_apps) {
        connect(m_apps, &TLPluginBaseManager::SigPluginsChanged, this, &AppListModel::Reset);
    }
    Reset();
}

int AppListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_offered.size();
}

QVariant AppListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
        return {};
    }
    const TLPluginBaseEntity& app = *m_offered.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return app.GetPluginName().isEmpty() ? app.GetServiceCode() : app.GetPluginName();
    case Qt::DecorationRole:
        return GetIcon(index.row());
    case ServiceCodeRole:
        return app.GetServiceCode();
    default:
        return {};
    }
}

void AppListModel::Reset()
{
    beginResetModel();
    m_offered.clear();
    const auto apps = m_apps ? m_apps->GetPlugins() : QList<QSharedPointer<TLPluginBaseEntity>>();
    for (const auto& app : apps) {
        if (app->availability != 1) {
            m_offered.append(app);
        }
    }
    endResetModel();
}

QPixmap AppListModel::GetIcon(int row) const
{
    const QString url = m_offered.at(row)->GetIconUrl();
    if (url.isEmpty() || !m_loadPicture) {
        return m_defaultIcon;
    }
    const auto known = m_icons.constFind(url);
    if (known != m_icons.constEnd()) {
        return known->isNull() ? m_defaultIcon : *known;
    }

    m_icons.insert(url, QPixmap());
    auto* self = const_cast<AppListModel*>(this);
    m_loadPicture(url, self, [self, url](const QPixmap& picture) {
        self->m_icons.insert(url, picture);
        for (int i = 0; i < self->m_offered.size(); ++i) {
            if (self->m_offered.at(i)->GetIconUrl() == url) {
                Q_EMIT self->dataChanged(self->index(i), self->index(i), {Qt::DecorationRole});
            }
        }
    });
    const QPixmap icon = m_icons.value(url);
    return icon.isNull() ? m_defaultIcon : icon;
}
