#include "AutoRunInfoEntity.h"

AutoRunInfoEntity::AutoRunInfoEntity(QObject* parent) : VXJsonParserBase(parent) {}
