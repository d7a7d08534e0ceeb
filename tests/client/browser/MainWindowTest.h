#pragma once

#include "FakePageFactory.h"

#include "browser/MainWindow.h"

#include "frame-core/IBrowserTab.h"
#include "frame-data/PluginOpenInfo.h"
#include "frame-data/TLPluginBaseManager.h"
#include "frame-data/TabOpenInfo.h"
#include "tab-container/TabData.h"
#include "tab-container/TabType.h"

#include <QtCore/QPointer>
#include <QtCore/QVector>
#include <QtGui/QPixmap>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

/// A shown main window over fake pages, with three apps: "orders" on the web, "print" native, and "odd"
/// whose address is a file.
class MainWindowTest : public ::testing::Test
{
protected:
    MainWindowTest();
    ~MainWindowTest() override;

    static QSharedPointer<TLPluginBaseEntity> MakeApp(const QString& code, const QString& address,
                                                      int availability = 0);
    void OpenUrl(const QString& address, int index = -1);
    void OpenDelayed(const QString& address, const QString& title, const QString& iconUrl = QString());
    void OpenApp(const QString& code, int index = -1);
    QStringList GetTitles() const;
    TabData& GetData(int index) const;
    QString GetRouterUrl(int index) const;
    /// Headline, text and address of the message that the current tab shows; empty when it shows none.
    QStringList GetMessage() const;

    /// Delivers the picture to everyone who asked for the address; false when nobody did.
    bool DeliverPicture(const QString& url, const QPixmap& picture);

    /// A picture that the window wants.
    struct PictureRequest
    {
        QString url;
        QPointer<QObject> context;
        std::function<void(const QPixmap&)> done;
    };

    FakePageFactory m_pages;
    QVector<PictureRequest> m_pictures;
    TLPluginBaseManager m_apps;
    std::unique_ptr<MainWindow> m_window;
};
