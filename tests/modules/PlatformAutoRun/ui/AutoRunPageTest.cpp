#include "AutoRunPageTest.h"

#include "AutoRunInfoEntity.h"
#include "DialogUser.h"
#include "SetAutoRunRequest.h"
#include "ui/AutoRunAddWidget.h"
#include "ui/AutoRunPluginAddWidget.h"
#include "ui/AutoRunPluginCombo.h"

#include "base-ui/RequestStatusBaseWidget.h"
#include "base-ui/TLCheckBox.h"
#include "base-ui/TLLineEdit.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtGui/QTextDocument>
#include <QtTest/QTest>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

namespace {

const QStringList AppNames{QStringLiteral("Orders"), QStringLiteral("Stock"), QStringLiteral("Chat"),
                           QStringLiteral("Ads"),    QStringLiteral("Mail"),  QStringLiteral("Bank")};

QByteArray Entity(const QString& id, const QString& url, int type, bool system, bool checked, bool active)
{
    AutoRunInfoEntity entry;
    entry.itemId = id;
    entry.name = id.at(0).toUpper() + id.mid(1);
    entry.url = url;
    entry.type = type;
    entry.systemItem = system;
    entry.checked = checked;
    entry.activeItem = active;
    return entry.ToJson();
}

QString Flags(bool checked, bool active)
{
    return QLatin1String(checked ? "+" : "") + QLatin1String(active ? "!" : "");
}

QStringList Words(const QJsonArray& entries, const QString& kind, const QString& key)
{
    QStringList words;
    for (const auto& value : entries) {
        const QJsonObject entry = value.toObject();
        words.append(kind + entry.value(key).toString() +
                     Flags(entry.value(QStringLiteral("checked")).toBool(),
                           entry.value(QStringLiteral("activeItem")).toBool()));
    }
    return words;
}

} // namespace

AutoRunPageTest::AutoRunPageTest()
{
    QList<QSharedPointer<TLPluginBaseEntity>> all;
    for (const QString& name : AppNames) {
        all.append(App(name, name.toLower()));
    }
    apps->SetPlugins(all);
    browserWindow->setGeometry(0, 0, 190, 190);
    browserWindow->show();
    browser.SetMainWidget(browserWindow.get());
}

AutoRunPageTest::~AutoRunPageTest() = default;

QByteArray AutoRunPageTest::Web(const char* id, const char* url, bool checked, bool active)
{
    return Entity(QLatin1String(id), QLatin1String(url), 0, false, checked, active);
}

QByteArray AutoRunPageTest::System(const char* id, bool checked, bool active)
{
    return Entity(QLatin1String(id), QStringLiteral("https://vx.example/%1").arg(QLatin1String(id)), 0, true,
                  checked, active);
}

QByteArray AutoRunPageTest::Plugin(const char* key, bool checked, bool active)
{
    return Entity(QLatin1String(key), QLatin1String(key), 1, false, checked, active);
}

QByteArray AutoRunPageTest::Webs(int count)
{
    QByteArrayList entries;
    for (int i = 1; i <= count; ++i) {
        const QByteArray number = QByteArray::number(i);
        entries.append(Web("w" + number, "https://vx.example/" + number));
    }
    return entries.join(',');
}

QByteArray AutoRunPageTest::Plugins(int count)
{
    QByteArrayList entries;
    for (int i = 0; i < count; ++i) {
        entries.append(Plugin(AppNames.at(i).toLower().toLatin1()));
    }
    return entries.join(',');
}

void AutoRunPageTest::OpenPage()
{
    page = factory.CreateSettingWidget(SettingWidgetId(10, 60));
    ASSERT_FALSE(page.isNull());
    succeeded = std::make_unique<QSignalSpy>(page.data(), &SettingItemBaseWidget::SigSaveSucceed);
    failed = std::make_unique<QSignalSpy>(page.data(), &SettingItemBaseWidget::SigSaveFailed);
    auto* const layout = settings->layout() != nullptr ? settings->layout() : new QVBoxLayout(settings.get());
    layout->addWidget(page);
    settings->resize(560, 700);
    Show(settings.get());
    settings->move(200, 0); // as a whole on the screen, beside the browser
    QCoreApplication::processEvents();
}

void AutoRunPageTest::OpenPage(const QByteArray& systemItems, const QByteArray& customItems,
                               const QByteArray& pluginItems)
{
    OpenPage();
    AnswerConfiguration(systemItems, customItems, pluginItems);
    QCoreApplication::sendPostedEvents();
}

void AutoRunPageTest::ClosePage()
{
    delete page;
    settings->hide();
}

QList<AutoRunBaseItem*> AutoRunPageTest::Rows() const
{
    QList<AutoRunBaseItem*> rows;
    for (const char* const name : {"verticalLayout_3", "verticalLayout_5"}) {
        const auto* const column = Find<QBoxLayout>(*page, name);
        for (int i = 0; i < column->count(); ++i) {
            rows.append(qobject_cast<AutoRunBaseItem*>(column->itemAt(i)->widget()));
        }
    }
    return rows;
}

QStringList AutoRunPageTest::Shown() const
{
    QStringList words;
    const auto rows = Rows();
    for (const AutoRunBaseItem* const row : rows) {
        const AutoRunInfoEntityPtr entry = row->GetData();
        const bool checked = Box(row)->isChecked();
        const bool active = !Find(*row, "active_widget")->isHidden();
        EXPECT_EQ(entry->checked, checked) << qUtf8Printable(entry->itemId);
        EXPECT_EQ(entry->activeItem, active) << qUtf8Printable(entry->itemId);
        const QString text = Flags(checked, active);
        switch (row->GetItemKind()) {
        case AutoRunBaseItem::KindHome:
            words.append(QStringLiteral("home") + text);
            break;
        case AutoRunBaseItem::KindSystem:
            words.append(QStringLiteral("system:") + entry->itemId + text);
            break;
        case AutoRunBaseItem::KindCustom:
            words.append(QStringLiteral("custom:") + entry->url + text);
            break;
        default:
            words.append(QStringLiteral("app:") + entry->url + text);
            break;
        }
    }
    return words;
}

AutoRunBaseItem* AutoRunPageTest::Row(const char* idOrUrl) const
{
    const auto rows = Rows();
    for (AutoRunBaseItem* const row : rows) {
        if (row->GetItemId() == QLatin1String(idOrUrl) || row->GetData()->url == QLatin1String(idOrUrl)) {
            return row;
        }
    }
    ADD_FAILURE() << "no row " << idOrUrl;
    return nullptr;
}

TLCheckBox* AutoRunPageTest::Box(const AutoRunBaseItem* row) const
{
    return Find<TLCheckBox>(*row, "checkBox");
}

RequestStatusBaseWidget* AutoRunPageTest::Status() const
{
    return Find<RequestStatusBaseWidget>(*page, "requestStatusWidget");
}

void AutoRunPageTest::Tick(AutoRunBaseItem* row)
{
    Hover(row);
    Click(Box(row));
}

void AutoRunPageTest::ClickInRow(AutoRunBaseItem* row, const char* button)
{
    MoveMouseAway();
    Hover(row);
    auto* const found = Find<QPushButton>(*row, button);
    ASSERT_TRUE(found->isVisible()) << button;
    Click(found);
}

void AutoRunPageTest::Press(const char* label, Qt::MouseButton button)
{
    Click(Label(label), button);
}

void AutoRunPageTest::AddUrl(const QString& url)
{
    const DialogUser<AutoRunAddWidget> user([&url](QWidget* dialog) { EnterUrl(dialog, url); });
    Press("add_label");
}

void AutoRunPageTest::AddApp(const QString& name)
{
    const DialogUser<AutoRunPluginAddWidget> user([&name](QWidget* dialog) { ChooseApp(dialog, name); });
    Press("add_plugin_label");
}

void AutoRunPageTest::EnterUrl(QWidget* dialog, const QString& url)
{
    auto* const field = Find<TLLineEdit>(*dialog, "content_edit");
    field->selectAll();
    QTest::keyClicks(field, url);
    QTest::keyClick(field, Qt::Key_Return);
}

void AutoRunPageTest::ChooseApp(QWidget* dialog, const QString& name)
{
    auto* const combo = Find<AutoRunPluginCombo>(*dialog, "content_combo");
    ASSERT_GE(combo->findText(name), 0) << qUtf8Printable(name);
    QTest::keyClick(combo, Qt::Key_Home);
    for (int i = 0; i < combo->findText(name); ++i) {
        QTest::keyClick(combo, Qt::Key_Down);
    }
    EXPECT_EQ(combo->currentText(), name);
    Click(Find(*dialog, "ok_button"));
}

QStringList AutoRunPageTest::Written(int call) const
{
    const QJsonObject lists = WrittenJson(call);
    return Words(lists.value(QStringLiteral("systemItems")).toArray(), QStringLiteral("system:"),
                 QStringLiteral("itemId")) +
           Words(lists.value(QStringLiteral("customItems")).toArray(), QStringLiteral("custom:"),
                 QStringLiteral("url")) +
           Words(lists.value(QStringLiteral("pluginItems")).toArray(), QStringLiteral("app:"),
                 QStringLiteral("url"));
}

QJsonObject AutoRunPageTest::WrittenJson(int call) const
{
    const auto request = http.GetCall(call).request.dynamicCast<SetAutoRunRequest>();
    if (!request) {
        ADD_FAILURE() << "call " << call << " is no write";
        return {};
    }
    return QJsonDocument::fromJson(request->GetBusinessParam())
        .object()
        .value(QStringLiteral("workstationSetResult"))
        .toObject();
}

QString AutoRunPageTest::PlainCount(const char* name) const
{
    QTextDocument document;
    document.setHtml(Label(name)->text());
    return document.toPlainText();
}
