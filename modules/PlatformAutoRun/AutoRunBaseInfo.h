#pragma once

class QJsonObject;

/// Who asks, from which device: the members `belongType`, `pin`, `deviceId` and `platform` that both
/// gateway requests of this module carry, from the client's data of this moment. GUI thread.
QJsonObject MakeAutoRunBaseInfo();
