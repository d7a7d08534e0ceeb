#include "look/ScaleManager.h"

#include "base/DpiTool.h"

#include <QtGui/QFontInfo>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>

namespace {

/// [px]. Qt has already scaled a font that is given in points to the first screen.
int GetUnscaledSize(const QFont& font)
{
    const QScreen* const screen = QGuiApplication::primaryScreen();
    const bool inPoints = font.pixelSize() < 0 && screen;
    return qRound(QFontInfo(font).pixelSize() /
                  (inPoints ? DpiTool::ToScreenScale(screen->logicalDotsPerInch()) : 1));
}

} // namespace

ScaleManager::ScaleManager(QObject* parent)
    : QObject(parent), m_fontSize(GetUnscaledSize(QApplication::font()))
{}

ScaleManager::~ScaleManager() = default;

QList<int> ScaleManager::GetScales()
{
    return {100, 125, 150, 200};
}

void ScaleManager::Apply(int scale)
{
    m_scale = GetScales().contains(scale) ? scale : 100;
    DpiTool::SetScale(m_scale / 100.0);
}

void ScaleManager::AdjustForDpi()
{
    QFont font = QApplication::font();
    font.setPixelSize(DpiTool::ScaleDefault(m_fontSize));
    QApplication::setFont(font);
}
