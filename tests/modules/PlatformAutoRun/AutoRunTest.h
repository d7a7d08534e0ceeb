#pragma once

#include "FakeBrowser.h"
#include "FakeGeneralData.h"
#include "FakeHttpManager.h"
#include "FakeRouteExecutor.h"
#include "RecordingEventDispatch.h"

#include "base/Provided.h"

#include <QtCore/QStringList>

#include <gtest/gtest.h>

/// A client around the module's classes: everything that they ask of the client is provided, and their
/// process-wide objects are new for every test. The browser is there from the beginning, with one tab. User
/// `demo` of belong type `merchant` is signed in, and the settings are kept in memory.
class AutoRunTest : public ::testing::Test
{
protected:
    AutoRunTest();
    ~AutoRunTest() override;

    /// Lets the logic read a configuration with these lists, each as the inside of a JSON array.
    void ReadConfiguration(const QByteArray& systemItems, const QByteArray& customItems = QByteArray(),
                           const QByteArray& pluginItems = QByteArray());
    /// Ends the newest call with such a configuration.
    void AnswerConfiguration(const QByteArray& systemItems, const QByteArray& customItems = QByteArray(),
                             const QByteArray& pluginItems = QByteArray());
    int LastCall() const;

    QStringList journal; ///< `event <name>` for each module event, and what else a test writes there
    FakeBrowser browser;
    FakeGeneralData generalData;
    FakeHttpManager http;
    FakeRouteExecutor routes;
    RecordingEventDispatch events{&journal};

private:
    Provided<IBrowserMain> m_providedBrowser{&browser};
    Provided<ITabOpener> m_providedOpener{&browser};
    Provided<IGeneralData> m_providedGeneralData{&generalData};
    Provided<IHttpManager> m_providedHttp{&http};
    Provided<IRouteExecutor> m_providedRoutes{&routes};
    Provided<IModuleEventDispatch> m_providedEvents{&events};
};
