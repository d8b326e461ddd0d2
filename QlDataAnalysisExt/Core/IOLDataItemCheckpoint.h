#pragma once

#include <string>

class IOLDataItem;

// A kept copy of one channel, samples included, that can be put back or
// stored in a file.
class IOLDataItemCheckpoint {
public:
    virtual ~IOLDataItemCheckpoint() = default;
    virtual bool Load(std::string path) = 0;
    virtual void Save(std::string path) = 0;
    virtual void Restore(IOLDataItem* item) = 0;
};
