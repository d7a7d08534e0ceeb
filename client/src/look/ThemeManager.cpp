#include "look/ThemeManager.h"

#include "look/LookResources.h"
#include "look/Scaled.h"

#include <QtCore/QEvent>
#include <QtCore/QFile>
#include <QtCore/QMetaEnum>
#include <QtCore/QRegularExpression>
#include <QtCore/QScopedValueRollback>
#include <QtCore/QSettings>
#include <QtGui/QPalette>
#include <QtWidgets/QApplication>

namespace {

/// The head of a theme holds lines "palette <Role>[ disabled]: #rrggbb".
QPalette ReadPalette(const QString& sheet)
{
    static const QRegularExpression line(
        QStringLiteral("^ \\* palette (\\w+)( disabled)?: (#[0-9a-fA-F]{6})$"),
        QRegularExpression::MultilineOption);
    const QMetaEnum roles = QMetaEnum::fromType<QPalette::ColorRole>();
    QPalette palette;
    for (auto it = line.globalMatch(sheet); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        bool known = false;
        const int role = roles.keyToValue(match.captured(1).toLatin1().constData(), &known);
        if (!known) {
            qWarning("The theme names an unknown palette role: %s", qPrintable(match.captured(1)));
            continue;
        }
        const QColor color(match.captured(3));
        if (match.capturedLength(2) > 0) {
            palette.setColor(QPalette::Disabled, static_cast<QPalette::ColorRole>(role), color);
        } else {
            palette.setColor(static_cast<QPalette::ColorRole>(role), color);
        }
    }
    return palette;
}

/// Style sheets know nothing of the scale, so the client replaces "12dp" by 12 pixels at the current scale,
/// and "7dp-2dp" by the difference of two such lengths, each rounded on its own.
QString ScaleLengths(const QString& sheet)
{
    static const QRegularExpression length(QStringLiteral("\\b(\\d+)dp(?:-(\\d+)dp)?\\b"));
    QString scaled;
    int from = 0;
    for (auto it = length.globalMatch(sheet); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        scaled += sheet.midRef(from, match.capturedStart() - from);
        scaled += QStringLiteral("%1px").arg(Scaled(match.capturedRef(1).toInt()) -
                                             Scaled(match.capturedRef(2).toInt()));
        from = match.capturedEnd();
    }
    return scaled + sheet.midRef(from);
}

bool LooksDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightnessF() < palette.color(QPalette::WindowText).lightnessF();
}

bool IsSystemDark(const QPalette& systemPalette)
{
#ifdef Q_OS_WIN
    // Qt 5 always gives programs a light palette.
    const QSettings personal(
        QStringLiteral(
            "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize"),
        QSettings::NativeFormat);
    const QVariant light = personal.value(QStringLiteral("AppsUseLightTheme"));
    if (light.isValid()) {
        return light.toInt() == 0;
    }
#endif
    return LooksDark(systemPalette);
}

/// Most systems announce a change of their theme as a change of the application's palette. Windows tells Qt 5
/// nothing, so the client looks when the user comes back to it.
bool MayFollowChangeOfSystem(QEvent::Type type)
{
#ifdef Q_OS_WIN
    if (type == QEvent::ApplicationStateChange) {
        return true;
    }
#endif
    return type == QEvent::ApplicationPaletteChange;
}

} // namespace

ThemeManager::ThemeManager(QObject* parent)
    : QObject(parent), m_systemDark(IsSystemDark(QApplication::palette()))
{
    LookResources::Ensure();
    qApp->installEventFilter(this);
}

ThemeManager::~ThemeManager() = default;

Theme ThemeManager::GetTheme() const noexcept
{
    return m_theme;
}

bool ThemeManager::IsDark() const noexcept
{
    return m_dark;
}

void ThemeManager::Apply(Theme theme)
{
    m_theme = theme;
    m_applied = true;
    ApplyFile(theme == Theme::Dark || (theme == Theme::FollowSystem && m_systemDark));
}

void ThemeManager::AdjustForDpi()
{
    if (m_applied) {
        ApplyFile(m_dark);
    }
}

void ThemeManager::ApplyFile(bool dark)
{
    QFile file(dark ? QStringLiteral(":/themes/dark.qss") : QStringLiteral(":/themes/light.qss"));
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("The theme %s is missing", qPrintable(file.fileName()));
        return;
    }
    const QString sheet = QString::fromUtf8(file.readAll());

    const QScopedValueRollback<bool> applying(m_applying, true);
    m_dark = dark;
    QApplication::setPalette(ReadPalette(sheet));
    qApp->setStyleSheet(ScaleLengths(sheet));
    Q_EMIT SigThemeApplied(dark);
}

bool ThemeManager::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == qApp && !m_applying && MayFollowChangeOfSystem(event->type())) {
        const bool dark = IsSystemDark(QApplication::palette());
        if (dark != m_systemDark) {
            m_systemDark = dark;
            if (m_theme == Theme::FollowSystem) {
                ApplyFile(dark);
            }
        }
    }
    return QObject::eventFilter(watched, event);
}
