#pragma once

class QJsonObject;

/// Who calls, and from which device: the members `belongType`, `pin`, `deviceId` and `platform` of both
/// gateway requests of this module, from the client's current data. GUI thread.
QJsonObject MakeAutoRunBaseInfo();
