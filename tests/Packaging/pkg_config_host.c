/* A C host built with one cc line from pkg-config: it opens the file named
 * on the command line in a handle and prints the size of its first channel. */
#include <DataSourceDll/DataSourceDll.h>

#include <stdio.h>

int main(int argc, char** argv) {
    DataSourceDllHandle* handle;
    int lines = 0, samples = 0;
    if (argc != 2) {
        fprintf(stderr, "usage: prog FILE\n");
        return 2;
    }
    handle = DataSourceDllOpenHandle(argv[1]);
    if (handle == NULL) {
        fprintf(stderr, "prog: %s does not open\n", argv[1]);
        return 1;
    }
    if (DataSourceDllHandleGetNumberOfLines(handle, 0, &lines) != 1 ||
        DataSourceDllHandleGetSamplesPerLine(handle, 0, &samples) != 1 || lines < 1 || samples < 1) {
        fprintf(stderr, "prog: no image in channel 0\n");
        return 1;
    }
    printf("channel 0: %d lines of %d samples\n", lines, samples);
    return DataSourceDllCloseHandle(handle) == 1 ? 0 : 1;
}
