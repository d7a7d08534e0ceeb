#pragma once

#include "AutoRunUiTest.h"
#include "RecordingMonitor.h"
#include "ui/AutoRunBaseItem.h"

#include "PlatformAutoRunSettingFactory.h"

#include <QtCore/QJsonObject>
#include <QtCore/QPointer>
#include <QtTest/QSignalSpy>

#include <functional>

class QLabel;
class QPushButton;
class RequestStatusBaseWidget;
class TLCheckBox;

/// A person in front of the settings page, which stands in a window of its own beside the browser's window.
/// The app list has Orders, Stock, Chat, Ads, Mail and Bank, their keys in lower case.
class AutoRunPageTest : public AutoRunUiTest
{
protected:
    AutoRunPageTest();
    ~AutoRunPageTest() override;

    /// An entry of a configuration as JSON; its name is the id with the first letter in upper case.
    static QByteArray Web(const char* id, const char* url, bool checked = false, bool active = false);
    static QByteArray System(const char* id, bool checked = false, bool active = false);
    static QByteArray Plugin(const char* key, bool checked = false, bool active = false);
    /// That many of them, with commas between.
    static QByteArray Webs(int count);
    static QByteArray Plugins(int count);

    /// Makes the page as the client does and shows it; its read has not ended then.
    void OpenPage();
    /// The same, and the read ends with this configuration.
    void OpenPage(const QByteArray& systemItems, const QByteArray& customItems = QByteArray(),
                  const QByteArray& pluginItems = QByteArray());
    /// Takes the page away as the client does with its dialog.
    void ClosePage();

    QList<AutoRunBaseItem*> Rows() const;
    /// One word per row, in the order in which they stand: `home`, `system:<id>`, `custom:<url>`,
    /// `app:<key>`, with a `+` when it is ticked and a `!` when it opens first.
    QStringList Shown() const;
    AutoRunBaseItem* Row(const char* idOrUrl) const;
    TLCheckBox* Box(const AutoRunBaseItem* row) const;
    QLabel* Label(const char* name) const { return Find<QLabel>(*page, name); }
    RequestStatusBaseWidget* Status() const;
    QString CustomCount() const { return PlainCount("custom_count_label"); }
    QString PluginCount() const { return PlainCount("plugin_count_label"); }

    /// With the mouse, at the place where the person sees it.
    void Tick(AutoRunBaseItem* row);
    void ClickInRow(AutoRunBaseItem* row, const char* button);
    void Press(const char* label, Qt::MouseButton button = Qt::LeftButton);
    /// Presses "+custom URL" and types the address; presses "+Add App" and chooses the app.
    void AddUrl(const QString& url);
    void AddApp(const QString& name);
    /// In a dialog that is open: types the address and presses Enter; chooses the app and clicks OK.
    static void EnterUrl(QWidget* dialog, const QString& url);
    static void ChooseApp(QWidget* dialog, const QString& name);

    /// The lists of a write that has not ended, one word per entry as in `Shown`.
    QStringList Written(int call) const;
    QJsonObject WrittenJson(int call) const;
    void EndWrite() { http.Answer(LastCall(), "true"); }

    PlatformAutoRunSettingFactory factory;
    RecordingMonitor monitor;
    std::unique_ptr<QWidget> browserWindow = std::make_unique<QWidget>();
    std::unique_ptr<QWidget> settings = std::make_unique<QWidget>();
    QPointer<SettingItemBaseWidget> page;
    std::unique_ptr<QSignalSpy> succeeded; ///< of the page
    std::unique_ptr<QSignalSpy> failed;

private:
    QString PlainCount(const char* name) const;

    Provided<IMonitorSystem> m_providedMonitor{&monitor};
};
