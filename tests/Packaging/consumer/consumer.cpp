// Opens the file named on the command line through the class and through a
// handle, and prints what both say of its first channel.
#include <DataSourceDll/DataSourceDllClass.h>

#include <cstdio>
#include <vector>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: consumer FILE\n");
        return 2;
    }
    if (DataSourceDll::Open(argv[1]) != 1) {
        std::fprintf(stderr, "consumer: %s does not open\n", argv[1]);
        return 1;
    }
    int channels = 0, size = 0, count = 0;
    DataSourceDll::GetNumberOfChannels(&channels);
    DataSourceDll::GetDataBufferSize(0, &size);
    std::vector<double> viaClass(static_cast<std::size_t>(size)), viaHandle(static_cast<std::size_t>(size));
    const int read = DataSourceDll::GetImageData(0, viaClass.data(), size, &count, ScanUnitsMetric);
    char* unit = DataSourceDll::GetDataScaleUnits(0, true);

    DataSourceDllHandle* handle = DataSourceDllOpenHandle(argv[1]);
    const int handleRead = DataSourceDllHandleGetImageMetricData(handle, 0, viaHandle.data(), size, &count);
    DataSourceDllCloseHandle(handle);
    DataSourceDll::Close();

    std::printf("%d channels, %d samples in channel 0, unit %s\n", channels, size, unit);
    DataSourceDllFreeString(unit);
    if (channels < 1 || size < 1 || read != 1 || handleRead != 1 || viaClass != viaHandle) {
        std::fprintf(stderr, "consumer: the two ways of reading disagree\n");
        return 1;
    }
    return 0;
}
