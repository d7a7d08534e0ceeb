#pragma once

#include "TabId.h"

#include <QtCore/QObject>
#include <QtCore/QString>

class OpenTabs;
class QPoint;
class QWidget;
class TabList;
class TLPluginBaseManager;
class WindowActions;

/// What the user does to the tabs and to the page in front: by keys, the menus, the list of all tabs and the
/// home tab. Leaves it to the window to show another tab.
class TabCommands final : public QObject
{
    Q_OBJECT

public:
    /// The objects outlive this one; `apps` may be null. Popups open over `window`.
    TabCommands(OpenTabs* tabs, const WindowActions* actions, const TLPluginBaseManager* apps,
                QWidget* window);

    /// A blank tab in front.
    void OpenStartTab();
    /// The app's tab in front; the one that shows it already where there is one.
    void OpenApp(const QString& serviceCode);
    void ReopenClosed();
    /// A page with something to lose asks first. Ignored for the home tab.
    void RequestClose(int index);
    void ShowTabList(QWidget* anchor);
    void ShowTabMenu(int index, const QPoint& position);

Q_SIGNALS:
    void SigSelectRequested(int index);
    /// A closed tab came back, not always to the front.
    void SigReopened(int index);

private:
    void ConnectTabActions();
    void ConnectPageActions();
    const TabList& GetList() const;
    void RequestCloseOthers(TabId id);
    void SelectNext(int step);
    void SelectNumber(int number);
    void MoveCurrent(int step);
    void Zoom(double (*step)(double));

    OpenTabs* m_tabs;
    const WindowActions* m_actions;
    const TLPluginBaseManager* m_apps;
    QWidget* m_window;
};
