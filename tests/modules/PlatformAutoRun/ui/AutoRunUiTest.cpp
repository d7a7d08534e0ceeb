#include "AutoRunUiTest.h"

#include "AutoRunRouterUrls.h"

#include "base/DpiTool.h"
#include "frame-data/TLUrlUtils.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLayout>

AutoRunUiTest::AutoRunUiTest()
{
    routes.SetRouteObject(AutoRunRouterUrls::PluginsObject(), apps.get());
    TLUrlUtils::SetVXDomains({QStringLiteral("vx.example")});
    MoveMouseAway();
}

AutoRunUiTest::~AutoRunUiTest()
{
    TLUrlUtils::SetVXDomains({});
    QCoreApplication::removeTranslator(&m_chinese);
    DpiTool::SetScale(1);
}

AutoRunInfoEntityPtr AutoRunUiTest::Entry(const QString& name, const QString& url)
{
    const auto entry = AutoRunInfoEntityPtr::create();
    entry->itemId = QStringLiteral("{id}");
    entry->name = name;
    entry->url = url;
    return entry;
}

QSharedPointer<TLPluginBaseEntity> AutoRunUiTest::App(const QString& name, const QString& key,
                                                      const QString& iconUrl, int availability)
{
    const auto app = QSharedPointer<TLPluginBaseEntity>::create();
    app->setProperty("name", name);
    app->setProperty("serviceCode", key);
    app->setProperty("iconUrl", iconUrl);
    app->availability = availability;
    return app;
}

QString AutoRunUiTest::Picture(const QColor& color)
{
    const QString path = folder.filePath(color.name().mid(1) + QStringLiteral(".png"));
    QImage image(QSize(16, 16), QImage::Format_ARGB32);
    image.fill(color);
    EXPECT_TRUE(image.save(path));
    return path;
}

void AutoRunUiTest::Show(QWidget* window)
{
    window->move(200, 200);
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
}

void AutoRunUiTest::Hover(QWidget* widget)
{
    QCursor::setPos(widget->mapToGlobal(widget->rect().center()));
    QCoreApplication::processEvents();
}

void AutoRunUiTest::MoveMouseAway()
{
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    QCoreApplication::processEvents();
}

void AutoRunUiTest::Click(QWidget* widget, Qt::MouseButton button)
{
    QTest::mouseClick(widget, button);
}

QMargins AutoRunUiTest::MarginsOf(const QLayout* layout)
{
    return layout->contentsMargins();
}

void AutoRunUiTest::SwitchToChinese()
{
    ASSERT_TRUE(m_chinese.load(QStringLiteral(TL_AUTORUN_TRANSLATION)));
    ASSERT_TRUE(QCoreApplication::installTranslator(&m_chinese));
    QCoreApplication::sendPostedEvents();
}

void AutoRunUiTest::SwitchToEnglish()
{
    QCoreApplication::removeTranslator(&m_chinese);
    QCoreApplication::sendPostedEvents();
}
