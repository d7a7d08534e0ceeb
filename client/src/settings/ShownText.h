#pragma once

#include <QtCore/QString>

class QLabel;

namespace ShownText {

/// What a person reads on the label, without the mark-up of a highlight.
QString Of(const QLabel* label);

} // namespace ShownText
