/* A host written in C11: it must compile against the public header with
 * warnings as errors, link against the shared library and run. */
#include "DataSourceDll/DataSourceDll.h"

#include <stdio.h>
#include <string.h>

static int messages;
static void onMessage(const char* text, void* user) {
    (void)text;
    (void)user;
    ++messages;
}

int main(int argc, char** argv) {
    int status = 0;
    int count = 0;
    double value = 0.0;
    char* text;

    DataSourceDllSetMessageCallback(onMessage, NULL);
    if (DataSourceDllClose() != 1) status = 1;
    if (DataSourceDllGetNumberOfChannels(&count) != -1) status = 1;
    if (DataSourceDllGetScanSize(0, &value) != -1) status = 1;
    if (strcmp(DataSourceDllGetForceDataScaleUnits(), "nN") != 0) status = 1;

    text = DataSourceDllGetDataTypeDesc(0);
    if (text == NULL || strcmp(text, "UNKNOWN") != 0) status = 1;
    DataSourceDllFreeString(text);

    text = DataSourceDllGetSegmentDescription(3);
    if (text == NULL || strcmp(text, "Retract Z") != 0) status = 1;
    DataSourceDllFreeString(text);

    if (argc > 1) {
        /* a file given on the command line must open and report its channels */
        if (DataSourceDllOpen(argv[1]) != 1) status = 1;
        if (DataSourceDllGetNumberOfChannels(&count) != 1 || count < 1) status = 1;
        DataSourceDllClose();
    }
    DataSourceDllSetMessageCallback(NULL, NULL);
    if (status != 0) {
        fprintf(stderr, "C host: unexpected answer\n");
    }
    return status;
}
