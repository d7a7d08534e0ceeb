#include "ui/AutoRunBaseItem.h"

#include "ui/LanguageWatch.h"
#include "ui_AutoRunBaseItem.h"

#include "base-ui/UIUtils.h"
#include "base/DpiTool.h"

#include <QtCore/QPointer>
#include <QtGui/QMouseEvent>
#include <QtGui/QTextDocument>

namespace {

constexpr int TextWidth = 388; // [px, unscaled]

bool IsLeftPress(const QEvent* event)
{
    return event->type() == QEvent::MouseButtonPress &&
           static_cast<const QMouseEvent*>(event)->button() == Qt::LeftButton;
}

} // namespace

AutoRunBaseItem::AutoRunBaseItem(QWidget* parent)
    : SettingItemBaseWidget(parent), IDpiAdapter(true), m_ui(std::make_unique<Ui::AutoRunBaseItem>())
{
    m_ui->setupUi(this);
    m_ui->checkBox->m_sizeClass = 1;
    m_ui->active_button->hide();
    m_ui->active_widget->hide();
    // Clicked, not toggled: only what the user does is a change.
    connect(m_ui->active_button, &QPushButton::clicked, this, &AutoRunBaseItem::SlotActiveBtnClicked);
    connect(m_ui->checkBox, &TLCheckBox::clicked, this, &AutoRunBaseItem::SlotCheckChanged);
    m_ui->text_label->installEventFilter(this);
    new LanguageWatch(this, [this] { Retranslate(); });
    AutoRunBaseItem::AdjustForDpi();
}

AutoRunBaseItem::~AutoRunBaseItem() = default;

void AutoRunBaseItem::SetData(const AutoRunInfoEntityPtr& entry)
{
    m_entry = entry;
    if (!m_entry) {
        return;
    }
    m_keyword.clear();
    m_ui->checkBox->setChecked(m_entry->checked);
    if (IsCheckLocked()) {
        m_ui->checkBox->setEnabled(false);
    }
    ShowText();
    m_ui->active_widget->setVisible(m_entry->activeItem);
    if (QWidget* const icon = GetIconWidget()) {
        m_ui->iconLabeLayout->addWidget(icon);
    }
    if (QWidget* const operate = GetOperateWidget()) {
        m_trailingWidget = operate;
        m_ui->horizontalLayout_3->addWidget(operate);
        operate->hide();
    }
}

AutoRunInfoEntityPtr AutoRunBaseItem::GetData() const
{
    return m_entry;
}

QString AutoRunBaseItem::GetItemId() const
{
    return m_entry ? m_entry->itemId : QString();
}

bool AutoRunBaseItem::IsActive() const
{
    return m_entry && m_entry->activeItem;
}

void AutoRunBaseItem::SetActive(bool active)
{
    if (!m_entry) {
        return;
    }
    m_entry->activeItem = active;
    m_ui->active_widget->setVisible(active);
    if (active) {
        m_ui->active_button->hide();
    }
}

void AutoRunBaseItem::SetChecked(bool checked)
{
    if (!m_entry) {
        return;
    }
    m_entry->checked = checked;
    m_ui->checkBox->setChecked(checked);
}

void AutoRunBaseItem::SetKeyword(const QString& keyword)
{
    m_keyword = keyword;
    SetLabelHighlighted(m_ui->text_label, keyword);
}

int AutoRunBaseItem::GetItemKind() const
{
    return KindBase;
}

bool AutoRunBaseItem::IsCheckLocked() const
{
    return false;
}

QString AutoRunBaseItem::GetShowText() const
{
    return m_entry ? m_entry->name : QString();
}

QWidget* AutoRunBaseItem::GetOperateWidget()
{
    return nullptr;
}

QWidget* AutoRunBaseItem::GetIconWidget()
{
    return nullptr;
}

void AutoRunBaseItem::AdjustForDpi()
{
    // The height of the row is the same at every scale.
    const int side = DpiTool::ScaleDefault(12);
    const int gap = DpiTool::ScaleDefault(4);
    m_ui->iconLabeLayout->setContentsMargins(0, 0, gap, 0);
    m_ui->horizontalLayout->setContentsMargins(side, 0, side, 0);
    m_ui->activeWidgetLayout->setContentsMargins(gap, 0, 0, 0);
}

bool AutoRunBaseItem::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_ui->text_label && m_ui->checkBox->isEnabled() && IsLeftPress(event)) {
        const QPointer<AutoRunBaseItem> guard(this);
        m_ui->checkBox->toggle();
        SlotCheckChanged();
        if (!guard) {
            return true; // the label is gone, too, so nobody can take the event
        }
    }
    return SettingItemBaseWidget::eventFilter(watched, event);
}

void AutoRunBaseItem::enterEvent(QEvent* event)
{
    Q_ASSERT(m_entry); // a row has an entry before it is shown
    if (!m_entry->activeItem) {
        m_ui->active_button->show();
    }
    if (m_trailingWidget != nullptr) {
        m_trailingWidget->show();
    }
    SettingItemBaseWidget::enterEvent(event);
}

void AutoRunBaseItem::leaveEvent(QEvent* event)
{
    m_ui->active_button->hide();
    if (m_trailingWidget != nullptr) {
        m_trailingWidget->hide();
    }
    SettingItemBaseWidget::leaveEvent(event);
}

void AutoRunBaseItem::resizeEvent(QResizeEvent* event)
{
    SettingItemBaseWidget::resizeEvent(event);
    ShowText();
}

void AutoRunBaseItem::SlotActiveBtnClicked()
{
    Q_EMIT SigActiveItem(this);
}

void AutoRunBaseItem::SlotCheckChanged()
{
    if (!m_entry) {
        return;
    }
    m_entry->checked = m_ui->checkBox->isChecked();
    Q_EMIT SigCheckItem(this);
}

void AutoRunBaseItem::ShowText()
{
    const QString text = GetShowText();
    QLabel* const label = m_ui->text_label;
    const QString elided = UIUtils::GetElidedText(text, label->font(), DpiTool::ScaleDefault(TextWidth));
    label->setTextFormat(Qt::PlainText);
    label->setText(elided);
    // A tool tip guesses whether its text is HTML; an escaped paragraph leaves nothing to guess.
    label->setToolTip(elided == text ? QString() : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal));
    m_ui->checkBox->setAccessibleName(text);
    SetLabelHighlighted(label, m_keyword);
}

void AutoRunBaseItem::Retranslate()
{
    m_ui->retranslateUi(this); // puts its own text into the label
    ShowText();
}
