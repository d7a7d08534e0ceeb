#include "ui/AutoRunSettingWidget.h"

#include "AutoRunIdentifiers.h"
#include "AutoRunInfoEntity.h"
#include "TLAutoRunLogic.h"
#include "ui/AutoRunAddWidget.h"
#include "ui/AutoRunCustomItem.h"
#include "ui/AutoRunEditWidget.h"
#include "ui/AutoRunHomeItem.h"
#include "ui/AutoRunPluginAddWidget.h"
#include "ui/AutoRunPluginEditWidget.h"
#include "ui/AutoRunPluginItem.h"
#include "ui/AutoRunSystemItem.h"
#include "ui/EntryDialog.h"
#include "ui/LanguageWatch.h"
#include "ui_AutoRunSettingWidget.h"

#include "base-ui/RequestStatus.h"
#include "base-ui/TLToast.h"
#include "base/DpiTool.h"
#include "core/IMonitorSystem.h"
#include "http-module/IHttpResponseDsm.h"
#include "http/HttpNotifyManager.h"
#include "http/IHttpRequest.h"

#include <QtCore/QEvent>
#include <QtCore/QPointer>
#include <QtCore/QUuid>

#include <algorithm>

namespace {

constexpr int MaxCustomCount = 5;
constexpr int MaxPluginCount = 5;

void Report(const QString& eventId, const QStringList& parameters = QStringList())
{
    IMonitorSystem::GetMonitorSystem()->ReportEvent(eventId, QStringLiteral("Home_Openingsetting"),
                                                    parameters);
}

QString UrlOf(const AutoRunBaseItem& row)
{
    const AutoRunInfoEntityPtr entry = row.GetData();
    return entry ? entry->url : QString();
}

QString CountText(int count, int limit)
{
    return QStringLiteral("<font color=\"#999999\">(</font>") +
           QStringLiteral("<font color=\"#333333\">%1</font>").arg(count) +
           QStringLiteral("<font color=\"#999999\">/%1)</font>").arg(limit);
}

AutoRunInfoEntityPtr NewEntry(int type)
{
    AutoRunInfoEntityPtr entry = AutoRunInfoEntityPtr::create();
    entry->itemId = QUuid::createUuid().toString();
    entry->type = type;
    return entry;
}

} // namespace

AutoRunSettingWidget::AutoRunSettingWidget(QWidget* parent)
    : SettingItemBaseWidget(parent, Qt::WindowCloseButtonHint)
    , IDpiAdapter(true)
    , m_ui(std::make_unique<Ui::AutoRunSettingWidget>())
{
    m_ui->setupUi(this);
    UpdateCustomCount(0);
    UpdatePluginCount(0);
    m_ui->requestStatusWidget->AddSucceedWidget(m_ui->content_widget);
    connect(m_ui->requestStatusWidget, &RequestStatusBaseWidget::SigRefresh, this,
            &AutoRunSettingWidget::SlotRefresh);
    m_ui->add_label->installEventFilter(this);
    m_ui->add_plugin_label->installEventFilter(this);
    new LanguageWatch(this, [this] { Retranslate(); });
    HttpNotifyManager::Instance()->AddObserver(
        this, {AutoRunIdentifiers::ReadFinished, AutoRunIdentifiers::WriteFinished});
    AdjustLayoutForDpi();
    SlotRefresh();
}

AutoRunSettingWidget::~AutoRunSettingWidget()
{
    HttpNotifyManager::Instance()->RemoveAllMessage(this);
}

void AutoRunSettingWidget::SetKeyword(const QString& keyword)
{
    m_keyword = keyword;
    SetLabelHighlighted(m_ui->top_label, keyword);
    SetLabelHighlighted(m_ui->plugin_title_label, keyword);
}

void AutoRunSettingWidget::OnHttpNotify(int id, QSharedPointer<IHttpRequest> request,
                                        QSharedPointer<IHttpResponse> response)
{
    if (!request || !response) {
        return;
    }
    if (id == AutoRunIdentifiers::ReadFinished) {
        if (request->GetIdentity() != AutoRunIdentifiers::SettingPageIdentity()) {
            return; // someone else's read
        }
        m_busy = false;
        if (response->IsSuccess()) {
            BuildRows();
            m_ui->requestStatusWidget->SetStatus(RequestStatus::Succeeded);
        } else {
            m_ui->requestStatusWidget->SetStatus(RequestStatus::Failed);
        }
    } else if (id == AutoRunIdentifiers::WriteFinished) {
        m_busy = false;
        if (response->IsSuccess()) {
            Q_EMIT SigSaveSucceed();
        } else {
            Q_EMIT SigSaveFailed();
        }
    }
}

void AutoRunSettingWidget::AdjustForDpi()
{
    AdjustLayoutForDpi();
    BuildRows();
}

bool AutoRunSettingWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        const QPointer<AutoRunSettingWidget> guard(this);
        if (watched == m_ui->add_label) {
            SlotAddBtnClicked();
        } else if (watched == m_ui->add_plugin_label) {
            SlotAddPluginBtnClicked();
        }
        if (!guard) {
            return true; // the label went with the page, so nobody can take the event
        }
    }
    return QObject::eventFilter(watched, event);
}

void AutoRunSettingWidget::SlotRefresh()
{
    if (m_busy) {
        return;
    }
    ClearRows();
    m_busy = true;
    TLAutoRunLogic::Instance()->RequestAutoRun(AutoRunIdentifiers::SettingPageIdentity());
    m_ui->requestStatusWidget->SetStatus(RequestStatus::Loading);
}

void AutoRunSettingWidget::SlotAddBtnClicked()
{
    Report(QStringLiteral("Home_Openingsetting_Addpage"));
    if (CountRows(AutoRunBaseItem::KindCustom) >= MaxCustomCount) {
        TLToast::Show(tr("Custom URL cannot exceed %1").arg(MaxCustomCount), ToastType::Warning);
        return;
    }
    const AutoRunInfoEntityPtr entry = NewEntry(AutoRunInfoEntity::TypeWebAddress);
    const QPointer<AutoRunSettingWidget> guard(this);
    if (!EntryDialog::FillIn<AutoRunAddWidget>(entry, tr("Add Url")) || !guard) {
        return;
    }
    AddCustomRow(entry);
    UpdateCustomCount(CountRows(AutoRunBaseItem::KindCustom));
    SaveConfig();
}

void AutoRunSettingWidget::SlotAddPluginBtnClicked()
{
    Report(QStringLiteral("Home_Openingsetting_AddService"));
    if (CountRows(AutoRunBaseItem::KindPlugin) >= MaxPluginCount) {
        TLToast::Show(tr("Add App cannot exceed %1").arg(MaxPluginCount), ToastType::Warning);
        return;
    }
    const AutoRunInfoEntityPtr entry = NewEntry(AutoRunInfoEntity::TypeApp);
    const QPointer<AutoRunSettingWidget> guard(this);
    if (!EntryDialog::FillIn<AutoRunPluginAddWidget>(entry, tr("Add App"), GetPluginKeys()) || !guard) {
        return;
    }
    AddPluginRow(entry);
    UpdatePluginCount(CountRows(AutoRunBaseItem::KindPlugin));
    SaveConfig();
}

void AutoRunSettingWidget::SlotEditBtnClicked(AutoRunBaseItem* pItemWidget)
{
    if (pItemWidget == nullptr) {
        return;
    }
    Report(QStringLiteral("Home_Openingsetting_Edit"), {UrlOf(*pItemWidget)});
    switch (pItemWidget->GetItemKind()) {
    case AutoRunBaseItem::KindPlugin:
        EditPluginItem(pItemWidget);
        break;
    case AutoRunBaseItem::KindCustom:
        EditCustomItem(pItemWidget);
        break;
    default:
        break;
    }
}

void AutoRunSettingWidget::SlotDeleteBtnClicked(AutoRunBaseItem* pItemWidget)
{
    if (pItemWidget == nullptr || !m_rows.contains(pItemWidget)) {
        return;
    }
    const int kind = pItemWidget->GetItemKind();
    if (pItemWidget->IsActive()) {
        SetActiveById(AutoRunIdentifiers::HomeItemId());
    }
    // At once, inside the signal of the row's own button: nothing of the row runs afterwards.
    m_rows.removeOne(pItemWidget);
    delete pItemWidget;

    if (kind == AutoRunBaseItem::KindCustom) {
        Report(QStringLiteral("Home_Openingsetting_Deletepage"));
        UpdateCustomCount(CountRows(kind));
    } else if (kind == AutoRunBaseItem::KindPlugin) {
        Report(QStringLiteral("Home_Openingsetting_DeleteService"));
        UpdatePluginCount(CountRows(kind));
    }
    SaveConfig();
}

void AutoRunSettingWidget::SlotActiveBtnClicked(AutoRunBaseItem* pItemWidget)
{
    if (pItemWidget == nullptr) {
        return;
    }
    SetActiveRow(pItemWidget);
    SaveConfig();
    Report(QStringLiteral("Home_Openingsetting_Prior"), {UrlOf(*pItemWidget)});
}

void AutoRunSettingWidget::SlotCheckBtnClicked(AutoRunBaseItem* pItemWidget)
{
    if (pItemWidget == nullptr) {
        return;
    }
    const AutoRunInfoEntityPtr entry = pItemWidget->GetData();
    const bool checked = entry && entry->checked;
    if (!checked && pItemWidget->IsActive()) {
        SetActiveById(AutoRunIdentifiers::HomeItemId());
    }
    SaveConfig();
    Report(checked ? QStringLiteral("Home_Openingsetting_Selected")
                   : QStringLiteral("Home_Openingsetting_Unselected"),
           {UrlOf(*pItemWidget)});
}

void AutoRunSettingWidget::AdjustLayoutForDpi()
{
    const int side = DpiTool::ScaleDefault(12);
    const int right = DpiTool::ScaleDefault(16);
    for (QLayout* const layout : {m_ui->listWidgetLayout, m_ui->pluginListWidgetLayout}) {
        layout->setContentsMargins(side, 0, right, 0);
    }
    for (QLayout* const layout : {m_ui->addLabelLayout, m_ui->addPluginLabelLayout}) {
        layout->setContentsMargins(side, DpiTool::ScaleDefault(2), 0, DpiTool::ScaleDefault(12));
        layout->setSpacing(DpiTool::ScaleDefault(4));
    }
    for (QWidget* const title : {m_ui->top_widget, m_ui->plugin_title_widget}) {
        title->setFixedHeight(DpiTool::ScaleDefault(24));
    }
}

void AutoRunSettingWidget::Retranslate()
{
    const QString pluginCount = m_ui->plugin_count_label->text();
    m_ui->retranslateUi(this); // puts its own text into the counter
    m_ui->plugin_count_label->setText(pluginCount);
    SetKeyword(m_keyword);
    for (const AutoRunBaseItem* const row : qAsConst(m_rows)) {
        if (row->GetItemKind() == AutoRunBaseItem::KindHome) {
            row->GetData()->name = tr("Homepage"); // the row hears of the language after the page
        }
    }
}

void AutoRunSettingWidget::ClearRows()
{
    qDeleteAll(m_rows);
    m_rows.clear();
}

void AutoRunSettingWidget::BuildRows()
{
    ClearRows();

    const auto home = AutoRunInfoEntityPtr::create();
    home->itemId = AutoRunIdentifiers::HomeItemId();
    home->name = tr("Homepage");
    home->checked = true;
    auto* const homeRow = new AutoRunHomeItem(m_ui->list_widget);
    connect(homeRow, &AutoRunBaseItem::SigActiveItem, this, &AutoRunSettingWidget::SlotActiveBtnClicked);
    AddRow(homeRow, home, m_ui->verticalLayout_3);

    QList<AutoRunInfoEntityPtr> systemItems;
    QList<AutoRunInfoEntityPtr> customItems;
    QList<AutoRunInfoEntityPtr> pluginItems;
    TLAutoRunLogic::Instance()->GetAutoRunCollection(systemItems, customItems, pluginItems);
    for (const AutoRunInfoEntityPtr& entry : qAsConst(systemItems)) {
        auto* const row = new AutoRunSystemItem(m_ui->list_widget);
        connect(row, &AutoRunBaseItem::SigActiveItem, this, &AutoRunSettingWidget::SlotActiveBtnClicked);
        connect(row, &AutoRunBaseItem::SigCheckItem, this, &AutoRunSettingWidget::SlotCheckBtnClicked);
        AddRow(row, entry, m_ui->verticalLayout_3);
    }
    for (const AutoRunInfoEntityPtr& entry : qAsConst(customItems)) {
        AddCustomRow(entry);
    }
    for (const AutoRunInfoEntityPtr& entry : qAsConst(pluginItems)) {
        AddPluginRow(entry);
    }

    // Exactly one row opens first: the last marked one, or else the home page.
    const auto marked = std::find_if(m_rows.crbegin(), m_rows.crend(),
                                     [](const AutoRunBaseItem* row) { return row->IsActive(); });
    AutoRunBaseItem* const candidate = marked != m_rows.crend() ? *marked : homeRow;
    if (!m_keyword.isEmpty()) {
        for (AutoRunBaseItem* const row : qAsConst(m_rows)) {
            row->SetKeyword(m_keyword);
        }
    }
    SetActiveRow(candidate);
    UpdateCustomCount(CountRows(AutoRunBaseItem::KindCustom));
    UpdatePluginCount(CountRows(AutoRunBaseItem::KindPlugin));
}

void AutoRunSettingWidget::AddRow(AutoRunBaseItem* row, const AutoRunInfoEntityPtr& entry, QBoxLayout* column)
{
    row->SetData(entry);
    column->addWidget(row);
    m_rows.append(row);
}

void AutoRunSettingWidget::ConnectEditable(AutoRunBaseItem* row)
{
    connect(row, &AutoRunBaseItem::SigEditItem, this, &AutoRunSettingWidget::SlotEditBtnClicked);
    connect(row, &AutoRunBaseItem::SigDeleteItem, this, &AutoRunSettingWidget::SlotDeleteBtnClicked);
    connect(row, &AutoRunBaseItem::SigActiveItem, this, &AutoRunSettingWidget::SlotActiveBtnClicked);
    connect(row, &AutoRunBaseItem::SigCheckItem, this, &AutoRunSettingWidget::SlotCheckBtnClicked);
}

void AutoRunSettingWidget::AddCustomRow(const AutoRunInfoEntityPtr& entry)
{
    auto* const row = new AutoRunCustomItem(m_ui->list_widget);
    ConnectEditable(row);
    AddRow(row, entry, m_ui->verticalLayout_3);
}

void AutoRunSettingWidget::AddPluginRow(const AutoRunInfoEntityPtr& entry)
{
    auto* const row = new AutoRunPluginItem(m_ui->plugin_list_widget);
    ConnectEditable(row);
    AddRow(row, entry, m_ui->verticalLayout_5);
}

void AutoRunSettingWidget::UpdateCustomCount(int count)
{
    m_ui->custom_count_label->setText(CountText(count, MaxCustomCount));
}

void AutoRunSettingWidget::UpdatePluginCount(int count)
{
    m_ui->plugin_count_label->setText(CountText(count, MaxPluginCount));
}

int AutoRunSettingWidget::CountRows(int kind) const
{
    return int(std::count_if(m_rows.cbegin(), m_rows.cend(),
                             [kind](const AutoRunBaseItem* row) { return row->GetItemKind() == kind; }));
}

QStringList AutoRunSettingWidget::GetPluginKeys() const
{
    QStringList keys;
    for (const AutoRunBaseItem* const row : m_rows) {
        if (row->GetItemKind() == AutoRunBaseItem::KindPlugin) {
            keys.append(UrlOf(*row));
        }
    }
    return keys;
}

void AutoRunSettingWidget::SetActiveRow(AutoRunBaseItem* row)
{
    for (AutoRunBaseItem* const each : qAsConst(m_rows)) {
        each->SetActive(false);
    }
    row->SetActive(true);
    row->SetChecked(true);
}

void AutoRunSettingWidget::SetActiveById(const QString& itemId)
{
    for (AutoRunBaseItem* const row : qAsConst(m_rows)) {
        row->SetActive(row->GetItemId() == itemId);
    }
}

void AutoRunSettingWidget::SaveConfig()
{
    if (m_rows.isEmpty() || m_busy) {
        return;
    }
    m_busy = true;
    // Leaves out the home page, which opens first when no other entry does.
    QList<AutoRunInfoEntityPtr> systemItems;
    QList<AutoRunInfoEntityPtr> customItems;
    QList<AutoRunInfoEntityPtr> pluginItems;
    for (const AutoRunBaseItem* const row : qAsConst(m_rows)) {
        switch (row->GetItemKind()) {
        case AutoRunBaseItem::KindSystem:
            systemItems.append(row->GetData());
            break;
        case AutoRunBaseItem::KindCustom:
            customItems.append(row->GetData());
            break;
        case AutoRunBaseItem::KindPlugin:
            pluginItems.append(row->GetData());
            break;
        default:
            break;
        }
    }
    TLAutoRunLogic::Instance()->SaveAutoRun(systemItems, customItems, pluginItems);
}

void AutoRunSettingWidget::EditCustomItem(AutoRunBaseItem* row)
{
    const AutoRunInfoEntityPtr entry = row->GetData();
    if (!entry) {
        return;
    }
    const QPointer<AutoRunSettingWidget> guard(this);
    const QPointer<AutoRunBaseItem> edited(row);
    if (EntryDialog::FillIn<AutoRunEditWidget>(entry, tr("Edit Url")) && guard) {
        TakeEdited(edited, AutoRunBaseItem::KindCustom, entry);
    }
}

void AutoRunSettingWidget::EditPluginItem(AutoRunBaseItem* row)
{
    const AutoRunInfoEntityPtr entry = row->GetData();
    if (!entry) {
        return;
    }
    const QPointer<AutoRunSettingWidget> guard(this);
    const QPointer<AutoRunBaseItem> edited(row);
    if (EntryDialog::FillIn<AutoRunPluginEditWidget>(entry, tr("Edit App"), GetPluginKeys()) && guard) {
        TakeEdited(edited, AutoRunBaseItem::KindPlugin, entry);
    }
}

void AutoRunSettingWidget::TakeEdited(AutoRunBaseItem* row, int kind, const AutoRunInfoEntityPtr& entry)
{
    if (row == nullptr) {
        // While the dialog was open, a change of the scale made new rows from the same entries, or a read
        // made rows from new entries.
        auto again = std::find_if(m_rows.cbegin(), m_rows.cend(),
                                  [&entry](const AutoRunBaseItem* each) { return each->GetData() == entry; });
        if (again == m_rows.cend() && !entry->itemId.isEmpty()) {
            again = std::find_if(m_rows.cbegin(), m_rows.cend(), [kind, &entry](const AutoRunBaseItem* each) {
                return each->GetItemKind() == kind && each->GetItemId() == entry->itemId;
            });
        }
        if (again == m_rows.cend()) {
            return; // the entry is no longer in the list
        }
        row = *again;
        row->GetData()->name = entry->name;
        row->GetData()->url = entry->url;
    }
    row->SetData(row->GetData());
    SaveConfig();
}
