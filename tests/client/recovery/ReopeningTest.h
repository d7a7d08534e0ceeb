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

/// A main window at the log-in of a user who had tabs open before, with a router behind it and with what a
/// module does about them.
class ReopeningTest : public MainWindowTest
{
protected:
    ReopeningTest();
    ~ReopeningTest() override;

    /// The run before ended without order while these were open.
    static void LeaveBehind(const TabSet& tabs);
    static void LeaveBehind(const QString& text);
    /// Two runs died right after they had reopened their tabs.
    static void DieTwice();
    /// As a module does that knows the addresses only.
    static void Reopen(const QVector<TabRecord>& tabs);
    /// Asks first, and reopens if the answer is Yes.
    static void Offer(const QVector<TabRecord>& tabs);
    static QVector<EarlierTabStore::Fate> GetFates();

    int CountDelayed() const;
    /// The tabs behind the home tab, as they would be kept.
    QVector<TabRecord> GetOpen() const;

    UserStore m_store;
    QuestionWatch m_questions;
    ClientRouter m_router;
    /// What was told by router URL to whoever keeps the tabs, in order.
    QStringList m_told;

private:
    Provided<IRouteExecutor> m_routerProvided{&m_router};
    Provided<ITabOpener> m_openerProvided{m_window.get()};
};
