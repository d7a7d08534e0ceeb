#pragma once

#include "AutoRunInfoEntityPtr.h"
#include "AutoRunTest.h"

#include "base/Provided.h"
#include "frame-data/TLPluginBaseManager.h"
#include "http/VXImageCache.h"

#include <QtCore/QMargins>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTranslator>
#include <QtWidgets/QWidget>

#include <memory>

class QLayout;

/// A person in front of the module's widgets, at a client with an app list, an image cache of its own, the
/// domain `vx.example`, and a scale of 100 %. The mouse is far away from all windows.
class AutoRunUiTest : public AutoRunTest
{
protected:
    AutoRunUiTest();
    ~AutoRunUiTest() override;

    static AutoRunInfoEntityPtr Entry(const QString& name, const QString& url = QString());
    static QSharedPointer<TLPluginBaseEntity> App(const QString& name, const QString& key,
                                                  const QString& iconUrl = QString(), int availability = 0);
    /// A picture file of one colour.
    QString Picture(const QColor& color);

    /// Opens a window in the middle of the screen and waits until it is active.
    static void Show(QWidget* window);
    /// Moves the mouse into the widget, and away from everything.
    static void Hover(QWidget* widget);
    static void MoveMouseAway();
    static void Click(QWidget* widget, Qt::MouseButton button = Qt::LeftButton);
    static QMargins MarginsOf(const QLayout* layout);

    void SwitchToChinese();
    void SwitchToEnglish();

    template <class Widget = QWidget>
    static Widget* Find(const QObject& root, const char* name)
    {
        Widget* const found = root.findChild<Widget*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    std::unique_ptr<TLPluginBaseManager> apps = std::make_unique<TLPluginBaseManager>();
    QTemporaryDir folder;
    VXImageCache images{folder.filePath(QStringLiteral("pictures"))};

private:
    Provided<VXImageCache> m_providedImages{&images};
    QTranslator m_chinese;
};
