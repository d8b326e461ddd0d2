#include "QlDataAnalysisExt/Quillon/QlOLDataSource.h"

#include "Platform/DataCore/DataFile.h"
#include "Platform/Logger.h"
#include "QlDataAnalysisExt/Quillon/QlSectionReader.h"

#include <algorithm>
#include <cctype>
#include <climits>
#include <cstdio>
#include <locale>
#include <sstream>
#include <utility>

namespace {

const char* const kLoggerName = "DataAnalysis.QlOLDataSource";

const char* const kSubtypes[] = {"IMAGE", "FORCE",  "SCRIPT", "FVOL",    "TIMED", "TIMED_FORCE",
                                 "HSDC",  "ECAFM",  "ECSTM",  "ECFORCE", "EC"};

constexpr std::uint32_t kOldestVersion = 0x04000000;
constexpr std::uint32_t kOldestForceVersion = 0x04300000;

// A version is hexadecimal with its "0x"; a text of one digit too many
// reads above 0x7FFFFFFF and is shifted back into place.
std::uint32_t ReadVersion(const std::string& text) {
    std::istringstream in(text);
    in.imbue(std::locale::classic());
    if (text.find("0x") != std::string::npos) {
        in >> std::hex;
    }
    std::uint32_t version = 0;
    if (!(in >> version)) {
        version = 0;
    }
    return version > 0x7FFFFFFFu ? version >> 4 : version;
}

int ImportKindOf(const std::string& history) {
    if (history == "PavoImport") {
        return 2;
    }
    if (history == "RampFrcImport") {
        return 3;
    }
    if (history == "TimeFrcImport") {
        return 4;
    }
    return 0;
}

}  // namespace

QlOLDataSource::QlOLDataSource(DataFilePtr file, ICreateColorTableCallback* callback)
    : OLDataSource(std::move(file), callback) {}

QlOLDataSource::~QlOLDataSource() = default;

bool QlOLDataSource::subtypeIsOneOf(std::initializer_list<const char*> subtypes) const {
    return std::any_of(subtypes.begin(), subtypes.end(), [this](const char* s) { return fileSubType == s; });
}

void QlOLDataSource::fail(const std::string& message) {
    opened = false;
    if (!message.empty()) {
        Orx::Core::LogManager::Instance().GetLogger(kLoggerName)->Log(2, message);
    }
}

void QlOLDataSource::Initialize() {
    opened = false;
    springConstant = 0.0;
    if (!dataFile || !dataFile->IsOpen()) {
        fail("QlOLDataSource::Initialize failed to open file");
        return;
    }
    filePath = dataFile->GetFileName();
    SetFileTitleFromPath();

    const QlSectionReader overview(dataFile->GetContainer({"QuillonFileOverviewInfo"}));
    if (!overview) {
        fail("QlOLDataSource::Initialize failed to open get QuillonFileOverviewInfo");
        return;
    }
    if (!readOverview(overview)) {
        return;
    }
    const QlSectionReader fileSection(dataFile->GetContainer({fileSectionName}));
    if (!fileSection) {
        fail("QlOLDataSource::Initialize failed to open get File list");
        return;
    }
    if (!readFileSection(fileSection)) {
        return;
    }

    readEquipment(dataFile->GetContainer({"Equipment list"}));
    const DataContainerPtr scan = dataFile->GetContainer({scanListName});
    if (!scan) {
        fail("QlOLDataSource::Initialize failed to open. Failed to get Dulce scan list");
        return;
    }
    readScanSection(scan);
    readScannerList(dataFile->GetContainer({"Scanner list"}));
    if (!subtypeIs("FVOL")) {
        readProbeList(dataFile->GetContainer({"Probe List"}));
    }
    if (subtypeIsOneOf({"FORCE", "SCRIPT", "FVOL", "TIMED_FORCE", "ECFORCE"})) {
        const DataContainerPtr force = dataFile->GetContainer({"Dulce force list"});
        if (!force) {
            fail("QlOLDataSource::Initialize failed to open get Dulce force list");
            return;
        }
        readForceList(force);
    }
    if (subtypeIs("HSDC")) {
        readHsdcList(dataFile->GetContainer({"HSDC list"}));
    }
    if (isElectrochemistry()) {
        const char* ecSection = subtypeIs("ECAFM")   ? "EC Potentio AFM list"
                                : subtypeIs("ECSTM") ? "EC Potentio STM list"
                                                     : "EC Potentio list";
        readEcList(dataFile->GetContainer({ecSection}));
    }

    hadInvalidDataFlag.clear();
    for (int channel = 0; channel < numberOfChannels; ++channel) {
        if (!readChannel(static_cast<unsigned>(channel))) {
            return;
        }
    }

    dataFile->Close();
    ApplyZOffsets(false);
    opened = true;
    for (OLDataItem& item : items) {
        item.SetForceSpringConstant(springConstant);
    }
}

// Steps 4 to 8: subtype, channel counts, channel names, section names. The
// refusals of this part are silent.
bool QlOLDataSource::readOverview(const QlSectionReader& overview) {
    overview.Read("FileSubType", fileSubType);
    if (std::none_of(std::begin(kSubtypes), std::end(kSubtypes), [this](const char* s) { return fileSubType == s; })) {
        fail({});
        return false;
    }
    int plists = 0;
    overview.Read("NumberOfDataPlists", plists);
    numberOfDataPlists = plists;
    numberOfChannels = plists;
    numberOfDisplayChannels = plists;
    if (subtypeIs("FVOL")) {
        numberOfDisplayChannels = 1;
    } else if (isElectrochemistry()) {
        // The last two sections of an electrochemistry file are its extras.
        if (plists >= 3) {
            numberOfDisplayChannels = plists - 2;
        } else if (plists == 2) {
            numberOfDisplayChannels = 1;
        } else {
            fail({});
            return false;
        }
    }
    overview.Read("DataPlistNames", dataListNames);
    scanListName = "Dulce scan list";
    overview.Read("ScanListPlistName", scanListName);
    overview.Read("FileListPlistName", fileSectionName);
    return true;
}

// Steps 10 to 12: version, date, start context, data length, rating, history.
bool QlOLDataSource::readFileSection(const QlSectionReader& fileSection) {
    if (fileSection.Has("Version")) {
        fileVersion = ReadVersion(fileSection.Text("Version"));
        const auto version = static_cast<std::int32_t>(fileVersion);
        const bool force = subtypeIsOneOf({"FORCE", "ECFORCE", "TIMED_FORCE"});
        if (version < static_cast<std::int32_t>(kOldestVersion) ||
            (force && version < static_cast<std::int32_t>(kOldestForceVersion))) {
            fail({});
            return false;
        }
    }
    fileSection.Read("Date", date);
    fileSection.Read("Start context", startContext);
    fileSection.Read("Data length", dataLength);
    std::string text;
    if (fileSection.Text("User Rating", text)) {
        userRating = static_cast<std::uint32_t>(QlSectionReader::AtoI(text));
    }
    if (fileSection.Text("History", history)) {
        importType = ImportKindOf(history);
    }
    return true;
}

OLDateTime QlOLDataSource::GetDateTime() const {
    // Every text field may be as long as the whole date, so none can overflow.
    std::vector<char> mark(date.size() + 1), dayName(date.size() + 1), monthName(date.size() + 1);
    int hour = 0, minute = 0, second = 0, day = 0, year = 0;
    const int read = std::sscanf(date.c_str(), "%d:%d:%d %s %s %s %d %d", &hour, &minute, &second, mark.data(),
                                 dayName.data(), monthName.data(), &day, &year);
    // Sums in 64 bits, so that no number of a date text overflows.
    auto inRange = [](long long v) { return static_cast<int>(std::clamp<long long>(v, INT_MIN, INT_MAX)); };
    OLDateTime t;
    t.seconds = second;
    t.minutes = minute;
    t.hours = inRange((hour == 12 ? 0LL : hour) + (std::tolower(static_cast<unsigned char>(mark[0])) == 'p' ? 12 : 0));
    t.dayOfMonth = day;
    // The month names are compared by address with the scanned text, which
    // never matches: the search runs out and leaves the last month.
    t.month = 12;
    t.year = inRange(static_cast<long long>(year) - 1900);
    t.daylight = -1;
    t.valid = read == 8;
    return t;
}

bool QlOLDataSource::IsImageFile() const { return subtypeIs("IMAGE"); }
bool QlOLDataSource::IsForceFile() const { return subtypeIs("FORCE"); }
bool QlOLDataSource::IsForceVolumeFile() const { return subtypeIs("FVOL"); }
// The start context, not the subtype, as Initialize branches by: files keep it so.
bool QlOLDataSource::IsHsdcFile() const { return startContext == "OL1HSDC" || startContext == "OL2HSDC"; }
bool QlOLDataSource::IsScriptFile() const { return startContext == "OLSCRIPT" || subtypeIs("SCRIPT"); }
bool QlOLDataSource::IsTimedFile() const { return startContext == "OLTIMED"; }
bool QlOLDataSource::IsTimedForceFile() const { return subtypeIs("TIMED_FORCE"); }
bool QlOLDataSource::IsEcStmFile() const { return subtypeIs("ECSTM"); }
bool QlOLDataSource::IsEcAfmFile() const { return subtypeIs("ECAFM"); }
bool QlOLDataSource::IsEcForceFile() const { return subtypeIs("ECFORCE"); }
bool QlOLDataSource::IsEcFile() const { return subtypeIs("EC"); }
