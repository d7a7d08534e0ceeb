#include "JsonRecordFuzz.h"

#include "TLTabRecoverData.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzJsonRecord<TLTabRecoverData>(data, size);
    return 0;
}
