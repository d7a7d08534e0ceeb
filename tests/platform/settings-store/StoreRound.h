#pragma once

#include <QtCore/QString>

/// What the n-th step of the program that gets killed stores. A value tells its step, so that it can be
/// seen which one is there and whether it is whole.
namespace StoreRound {

inline constexpr int FieldCount = 7;

QString GetSection();
QString GetField(int step);
QString GetValue(int step);
/// The step that a value is of; -1 when it is not one, or not whole.
int GetStep(const QString& value);

} // namespace StoreRound
