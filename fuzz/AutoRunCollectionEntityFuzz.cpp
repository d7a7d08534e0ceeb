#include "JsonRecordFuzz.h"

#include "AutoRunCollectionEntity.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzJsonRecord<AutoRunCollectionEntity>(data, size);
    return 0;
}
