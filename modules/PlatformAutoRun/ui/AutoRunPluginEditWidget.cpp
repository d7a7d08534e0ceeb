#include "ui/AutoRunPluginEditWidget.h"

#include "TLAutoRunLogic.h"
#include "ui/LanguageWatch.h"
#include "ui_AutoRunPluginEditWidget.h"

#include "base/DpiTool.h"
#include "frame-data/TLPluginBaseManager.h"
#include "http/VXImageCache.h"

#include <QtGui/QIcon>
#include <QtGui/QPixmap>

namespace {

constexpr int NotOffered = 1; // the availability of an app that is not offered for new entries

} // namespace

AutoRunPluginEditWidget::AutoRunPluginEditWidget(QWidget* parent)
    : TLBaseDialog(parent, Qt::WindowCloseButtonHint, TitleType::TitleBar, true)
    , m_ui(std::make_unique<Ui::AutoRunPluginEditWidget>())
    , m_error(this)
{
    m_ui->setupUi(GetContentWidget());
    AutoRunPluginEditWidget::ChangeSkin();
    AutoRunPluginEditWidget::AdjustForDpi();
    connect(m_ui->ok_button, &QPushButton::clicked, this, &AutoRunPluginEditWidget::SlotOkBtnClicked);
    connect(m_ui->cancel_button, &QPushButton::clicked, this, &AutoRunPluginEditWidget::SlotCancelBtnClicked);
    connect(VXImageCache::Instance(), &VXImageCache::SigRequestImageFinished, this,
            &AutoRunPluginEditWidget::SlotRequestImageFinished);
    new LanguageWatch(this, [this] { Retranslate(); });
}

AutoRunPluginEditWidget::~AutoRunPluginEditWidget()
{
    VXImageCache::Instance()->disconnect(this);
}

void AutoRunPluginEditWidget::SetExcludeKeys(const QStringList& keys)
{
    m_excludeKeys = keys;
}

void AutoRunPluginEditWidget::SetData(const AutoRunInfoEntityPtr& entry)
{
    m_entry = entry;
    if (m_entry) {
        FillCombo(m_entry->url);
    }
}

AutoRunInfoEntityPtr AutoRunPluginEditWidget::GetData() const
{
    return m_entry;
}

bool AutoRunPluginEditWidget::CheckInput()
{
    const TLPluginBaseManager* const plugins = TLAutoRunLogic::Instance()->GetPluginManager();
    if (plugins == nullptr) {
        return false;
    }
    const QString name = m_ui->content_combo->currentText();
    if (name.isEmpty()) {
        m_error.Show(m_ui->content_combo, tr("Please select app"));
        return false;
    }

    QString key;
    const auto all = plugins->GetPlugins();
    for (const auto& plugin : all) {
        if (plugin->availability != NotOffered && plugin->GetPluginName() == name) {
            key = plugin->GetServiceCode();
            break;
        }
    }
    if (key.isEmpty()) {
        m_error.Show(m_ui->content_combo, tr("Please select app"));
        m_ui->content_combo->showPopup();
        return false;
    }
    if (m_entry) {
        m_entry->name = name;
        m_entry->url = key;
    }
    return true;
}

QString AutoRunPluginEditWidget::GetTitleText() const
{
    return tr("Edit App");
}

void AutoRunPluginEditWidget::AdjustForDpi()
{
    const int side = DpiTool::ScaleDefault(40);
    const int bottom = DpiTool::ScaleDefault(30);
    const int spacing = DpiTool::ScaleDefault(10);
    const int icon = DpiTool::ScaleDefault(16);
    m_ui->btnWidgetLayout->setContentsMargins(0, 0, 0, bottom);
    m_ui->btnWidgetLayout->setSpacing(spacing);
    m_ui->bottom_widget->setFixedHeight(DpiTool::ScaleDefault(66));
    m_ui->contentWidgetLayout->setContentsMargins(side, DpiTool::ScaleDefault(20), side, bottom);
    m_ui->contentWidgetLayout->setSpacing(spacing);
    m_ui->content_combo->setIconSize(QSize(icon, icon));
}

void AutoRunPluginEditWidget::ChangeSkin()
{
    m_ui->ok_button->SetButtonType(ButtonType::Primary);
    m_ui->ok_button->m_sizeClass = 1;
    m_ui->cancel_button->SetButtonType(ButtonType::Secondary);
    m_ui->cancel_button->m_sizeClass = 1;
}

void AutoRunPluginEditWidget::SlotOkBtnClicked()
{
    if (m_entry && CheckInput()) {
        accept();
    }
}

void AutoRunPluginEditWidget::SlotCancelBtnClicked()
{
    reject();
}

void AutoRunPluginEditWidget::SlotRequestImageFinished(bool bSucceed, const QString& strUrl,
                                                       const QString& strLocal)
{
    if (!bSucceed || !m_pendingIcons.contains(strUrl)) {
        return;
    }
    const int index = m_ui->content_combo->findData(strUrl);
    if (index < 0) {
        return;
    }
    // Reads it now: the file may be gone when the icon is drawn.
    const QPixmap picture(strLocal);
    if (!picture.isNull()) {
        m_ui->content_combo->setItemIcon(index, QIcon(picture));
    }
}

void AutoRunPluginEditWidget::FillCombo(const QString& currentKey)
{
    const TLPluginBaseManager* const plugins = TLAutoRunLogic::Instance()->GetPluginManager();
    if (plugins == nullptr) {
        return;
    }
    m_ui->content_combo->clear();
    m_pendingIcons.clear();
    m_ui->content_label->setText(GetTitleText());
    m_ui->content_combo->addItem(QIcon(), tr("Please select app"), QString());

    const QIcon defaultIcon(QStringLiteral(":/images/default.png"));
    QString currentName;
    const auto all = plugins->GetPlugins();
    for (const auto& plugin : all) {
        if (plugin->availability == NotOffered) {
            continue;
        }
        if (!currentKey.isEmpty() && currentKey == plugin->GetServiceCode()) {
            currentName = plugin->GetPluginName();
        } else if (m_excludeKeys.contains(plugin->GetServiceCode())) {
            continue;
        }
        m_ui->content_combo->addItem(defaultIcon, plugin->GetPluginName(), plugin->GetIconUrl());
        m_pendingIcons.append(plugin->GetIconUrl());
    }
    if (!currentName.isEmpty()) {
        m_ui->content_combo->setCurrentText(currentName);
    }
    const QStringList pending = m_pendingIcons;
    for (const QString& url : pending) {
        VXImageCache::Instance()->RequestImage(url, false);
    }
}

void AutoRunPluginEditWidget::Retranslate()
{
    m_ui->retranslateUi(GetContentWidget());
    if (m_ui->content_combo->count() > 0) {
        m_ui->content_label->setText(GetTitleText());
        m_ui->content_combo->setItemText(0, tr("Please select app")); // the prompt
    }
}
