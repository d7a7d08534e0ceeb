#include "FakeSettingsPage.h"

#include "FakePageRequest.h"
#include "FakePageResponse.h"

#include "base-ui/TLBaseDialog.h"
#include "http/IHttpManager.h"

#include <QtCore/QEvent>
#include <QtCore/QPointer>
#include <QtWidgets/QVBoxLayout>

FakeSettingsPage::FakeSettingsPage()
    : heading(new QLabel(QStringLiteral("What opens"), this))
    , addLabel(new QLabel(QStringLiteral("+add"), this)) // made before the rows, stands after them
    , m_column(new QVBoxLayout)
{
    setObjectName(QStringLiteral("FakeSettingsPage"));
    addLabel->setObjectName(QStringLiteral("add_label"));
    addLabel->setFocusPolicy(Qt::StrongFocus);
    addLabel->installEventFilter(this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addLayout(m_column);
    layout->addWidget(addLabel);
    layout->addStretch();
    Read();
}

FakeSettingsPage::~FakeSettingsPage() = default;

void FakeSettingsPage::SetKeyword(const QString& word)
{
    keyword = word;
    SetLabelHighlighted(heading, word);
}

void FakeSettingsPage::AdjustForDpi()
{
    Build(m_cache);
}

QString FakeSettingsPage::GetContent() const
{
    QStringList lines;
    for (const FakeSettingsRow* const row : m_rows) {
        lines.append(row->entry + (row->box->isChecked() ? QStringLiteral("\t1") : QStringLiteral("\t0")));
    }
    return lines.join(QLatin1Char('\n'));
}

bool FakeSettingsPage::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == addLabel && event->type() == QEvent::MouseButtonPress) {
        ++presses;
        bool wanted = true;
        if (addsByDialog) {
            TLBaseDialog dialog(dialogParent != nullptr ? dialogParent : window());
            dialog.resize(200, 100);
            dialog.setObjectName(QStringLiteral("add_dialog"));
            wanted = dialog.exec() == QDialog::Accepted;
        }
        if (wanted) {
            AddRow(QStringLiteral("added %1").arg(presses), false);
            Save();
        }
    }
    return SettingItemBaseWidget::eventFilter(watched, event);
}

void FakeSettingsPage::Read()
{
    m_busy = true;
    const auto request = QSharedPointer<FakePageRequest>::create("read", QByteArray());
    const auto response = QSharedPointer<FakePageResponse>::create(true);
    IHttpManager::Instance()->Send(
        request, response,
        [self = QPointer<FakeSettingsPage>(this), response] {
            if (!self) {
                return;
            }
            self->m_busy = false;
            if (response->IsSuccess()) {
                self->m_cache = response->value;
                self->Build(response->value);
            }
        },
        0, 1);
}

void FakeSettingsPage::Build(const QString& content)
{
    qDeleteAll(m_rows);
    m_rows.clear();
    const QStringList lines = content.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        AddRow(line.section(QLatin1Char('\t'), 0, 0), line.endsWith(QLatin1Char('1')));
    }
}

void FakeSettingsPage::AddRow(const QString& text, bool checked)
{
    auto* row = new FakeSettingsRow(text, checked, this);
    m_column->addWidget(row);
    m_rows.append(row);
    connect(row, &FakeSettingsRow::SigChanged, this, &FakeSettingsPage::Save);
    connect(row, &FakeSettingsRow::SigDelete, this, [this](FakeSettingsRow* gone) {
        m_rows.removeOne(gone);
        delete gone; // inside its own button's signal, as pages do
        Save();
    });
    if (!keyword.isEmpty()) {
        row->SetKeyword(keyword);
    }
}

void FakeSettingsPage::Save()
{
    if (m_busy) {
        ++skipped;
        return;
    }
    m_busy = true;
    const auto request = QSharedPointer<FakePageRequest>::create("write", GetContent().toUtf8());
    const auto response = QSharedPointer<FakePageResponse>::create(false);
    IHttpManager::Instance()->Send(
        request, response,
        [self = QPointer<FakeSettingsPage>(this), response] {
            if (!self) {
                return;
            }
            self->m_busy = false;
            if (response->IsSuccess()) {
                Q_EMIT self->SigSaveSucceed();
            } else {
                Q_EMIT self->SigSaveFailed();
            }
        },
        0, 1);
}
