#pragma once

#include "AppListModel.h"

#include "base/IDpiAdapter.h"

#include <QtCore/QString>
#include <QtWidgets/QWidget>

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QListView;
class QSortFilterProxyModel;
class QVBoxLayout;

/// The home tab: a greeting and the apps, with a search field.
class HomePage final : public QWidget, public IDpiAdapter
{
    Q_OBJECT

public:
    /// `userName` may be empty; `apps` and `loadPicture` as for `AppListModel`.
    HomePage(const QString& userName, TLPluginBaseManager* apps, const PictureLoader& loadPicture,
             QWidget* parent = nullptr);

    void AdjustForDpi() override;

Q_SIGNALS:
    void SigAppChosen(const QString& serviceCode);

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void SetUpHead();
    void SetUpGrid();
    void Retranslate();
    void UpdateEmpty();
    void Choose(const QModelIndex& index);

    QString m_userName;
    AppListModel* m_model;
    QSortFilterProxyModel* m_filter;
    QLabel* m_greeting;
    QLabel* m_empty;
    QLineEdit* m_search;
    QListView* m_grid;
    QWidget* m_content;
    QHBoxLayout* m_head;
    QVBoxLayout* m_column;
};
