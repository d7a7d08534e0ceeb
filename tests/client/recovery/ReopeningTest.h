#pragma once

#include "MainWindowTest.h"
#include "UserStore.h"

#include "modules/ClientRouter.h"
#include "recovery/EarlierTabStore.h"
#include "recovery/TabSet.h"
#include "system/QuestionWatch.h"

#include "base/IRouteExecutor.h"
#include "base/Provided.h"

#include <QtCore/QStringList>

/// A main window at the log-in of a user who had tabs open before, with a router and with what a module does
/// about those tabs.
class ReopeningTest : public MainWindowTest
{
protected:
    ReopeningTest();
    ~ReopeningTest() override;

    /// Acts as if the previous run had been interrupted with these tabs open.
    static void LeaveBehind(const TabSet& tabs);
    static void LeaveBehind(const QString& text);
    /// Acts as if two runs had died right after reopening their tabs.
    static void DieTwice();
    /// Reopens as a module does that knows only the addresses.
    static void Reopen(const QVector<TabRecord>& tabs);
    /// Asks first, and reopens if the answer is Yes.
    static void Offer(const QVector<TabRecord>& tabs);
    static QVector<EarlierTabStore::Fate> GetFates();

    int CountDelayed() const;
    /// The tabs after the home tab, as they would be recorded.
    QVector<TabRecord> GetOpen() const;

    UserStore m_store;
    QuestionWatch m_questions;
    ClientRouter m_router;
    /// The router URLs that the keeper of the tabs was told, in order.
    QStringList m_told;

private:
    Provided<IRouteExecutor> m_routerProvided{&m_router};
    Provided<ITabOpener> m_openerProvided{m_window.get()};
};
