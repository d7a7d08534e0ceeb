#include "settings/ScaleManager.h"

#include "base/DpiTool.h"

#include <QtGui/QFontInfo>
#include <QtWidgets/QApplication>

ScaleManager::ScaleManager(QObject* parent)
    : QObject(parent), m_fontSize(qRound(QFontInfo(QApplication::font()).pixelSize() / DpiTool::GetScale()))
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
