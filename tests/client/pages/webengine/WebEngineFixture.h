#pragma once

#include "WebServer.h"

#include "browser/MainWindow.h"
#include "webengine/WebEnginePageFactory.h"

#include <QtCore/QPoint>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QUrl>
#include <QtCore/QVariant>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

class QWebEngineView;

/// A shown main window over the real web engine, and a web server with "/ok", a page of the title "All well".
class WebEngineFixture : public ::testing::Test
{
protected:
    static constexpr int Deadline = 30000; // [ms]

    WebEngineFixture();
    ~WebEngineFixture() override;

    /// Runs a real event loop meanwhile; QTest::qWaitFor sleeps between batches of events, which stretches a
    /// page load of 50 ms to more than a second. Whether the condition came true within `Deadline`.
    static bool WaitUntil(const std::function<bool()>& condition);
    /// Ends a process that this one started, as the system does when memory is short: without asking it.
    static void EndProcess(qint64 pid);
    /// The engine writes to a profile's folder for a while after the profile is gone, so all folders stay
    /// until the program ends.
    static QString MakeFolder();

    /// Replaces the window by a new one.
    void MakeWindow();
    void Open(const QUrl& url, bool activate = true);
    /// Opens the page in front and waits until it has loaded; whether it has.
    bool OpenAndWait(const QUrl& url);
    QString GetTitle(int index) const;
    /// Waits for a tab's title: the engine may tell it after the end of the load.
    testing::AssertionResult WaitForTitle(int index, const QString& title) const;
    /// The view in front; null when it shows no page.
    QWebEngineView* GetView() const;
    /// Headline, text and address of the message in front; empty when there is none.
    QStringList GetMessage() const;
    void PressMessageButton();
    QString GetTabNotice(const QString& id) const;
    /// Clicks into the page as a user does.
    void Click(const QPoint& place);
    /// Runs a script in the page shown and gives its result.
    QVariant Run(const QString& script);

    WebServer m_server;
    std::unique_ptr<WebEnginePageFactory> m_pages;
    std::unique_ptr<MainWindow> m_window;
};
