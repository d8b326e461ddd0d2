#include "QlDataAnalysisExt/Core/OLDataItem.h"

#include "Platform/Archive.h"
#include "QlDataAnalysisExt/Core/UnitHelpers.h"

#include <cstring>

using Orx::Core::Archive;
using Orx::Core::ArchiveException;

namespace {

// ---- the record's primitive forms ----------------------------------------

std::string readString(Archive& ar) {
    // The count is the byte length when written; a reader only asks whether
    // a string follows at all.
    if (ar.ReadU32() == 0) {
        return {};
    }
    return ar.ReadFrameworkString();
}

void writeString(Archive& ar, const std::string& s) {
    ar.WriteU32(static_cast<std::uint32_t>(s.size()));
    if (!s.empty()) {
        ar.WriteFrameworkString(s);
    }
}

UValue readUnitized(Archive& ar) {
    const double value = ar.ReadF64();
    const std::string unit = readString(ar);
    return UValue(value, UnitNamed(unit));
}

void writeUnitized(Archive& ar, const UValue& v) {
    ar.WriteF64(v.GetValue());
    writeString(ar, v.GetUnits()->GetAbbreviation());
}

void readGroup(Archive& ar, ScaleGroup& g) {
    g.value = readUnitized(ar);
    g.sensitivity = ar.ReadF64();
    g.sensitivityUnits = readString(ar);
}

void writeGroup(Archive& ar, const ScaleGroup& g) {
    writeUnitized(ar, g.value);
    ar.WriteF64(g.sensitivity);
    writeString(ar, g.sensitivityUnits);
}

void readVector(Archive& ar, std::vector<std::uint32_t>& v) {
    const std::int32_t n = ar.ReadI32();
    if (n <= 0) {
        return;
    }
    if (static_cast<std::uint64_t>(n) * 4 > ar.Remaining()) {
        throw ArchiveException(ArchiveException::endOfFile);
    }
    v.reserve(v.size() + static_cast<std::size_t>(n));
    for (std::int32_t i = 0; i < n; ++i) {
        v.push_back(ar.ReadU32());
    }
}

void writeVector(Archive& ar, const std::vector<std::uint32_t>& v) {
    ar.WriteI32(static_cast<std::int32_t>(v.size()));
    for (auto w : v) {
        ar.WriteU32(w);
    }
}

void readColorTable(Archive& ar, ColorEntries& t) {
    std::uint8_t bytes[256 * 3];
    ar.ReadBytes(bytes, sizeof bytes);
    for (std::size_t i = 0; i < 256; ++i) {
        t[i].blue = bytes[3 * i];
        t[i].green = bytes[3 * i + 1];
        t[i].red = bytes[3 * i + 2];
    }
}

void writeColorTable(Archive& ar, const ColorEntries& t) {
    for (const auto& e : t) {
        ar.WriteU8(e.blue);
        ar.WriteU8(e.green);
        ar.WriteU8(e.red);
    }
}

// Seven flags are read as four bytes compared with 1 but written as one byte;
// both directions stay so, as files of both forms exist.
bool readIntFlag(Archive& ar) { return ar.ReadU32() == 1; }
void writeIntFlag(Archive& ar, bool flag) { ar.WriteU8(flag ? 1 : 0); }

float readFloatBits(Archive& ar) {
    const std::uint32_t bits = ar.ReadU32();
    float f;
    std::memcpy(&f, &bits, 4);
    return f;
}

void writeFloatBits(Archive& ar, float f) {
    std::uint32_t bits;
    std::memcpy(&bits, &f, 4);
    ar.WriteU32(bits);
}

}  // namespace

void OLDataItem::ReadRecord(Archive& ar) {
    if (!ar.IsLoading()) {
        throw ArchiveException(ArchiveException::writeOnly);
    }
    const std::uint32_t schema = ar.GetObjectSchema();

    numberOfLines = ar.ReadU32();
    samplesPerLine = ar.ReadU32();
    scanSize = readUnitized(ar);
    scanSizeY = schema >= 2 ? readUnitized(ar) : scanSize;
    aspectRatio = ar.ReadF32();
    zMagnify = ar.ReadF32();
    zScaleSw = ar.ReadF32();
    zScaleHw = ar.ReadF32();
    scalingFactor = ar.ReadF32();
    rotateAngle = readFloatBits(ar);
    zSensitivity = ar.ReadF64();
    zSensitivityUnits = readString(ar);
    zSensitivityName = readString(ar);
    zSensitivitySection = readString(ar);
    magnifyText = readString(ar);
    sensitivityText = readString(ar);
    zText = readString(ar);
    dataScale = readUnitized(ar);
    dataScaleName = readString(ar);
    dataName = readString(ar);
    lineDirection = readString(ar);
    frameDirection = readString(ar);
    scanLine = readString(ar);
    reservedText = readString(ar);
    note = readString(ar);
    validStartX = ar.ReadU32();
    validStartY = ar.ReadU32();
    validLenX = ar.ReadU32();
    validLenY = ar.ReadU32();
    planefit.a = ar.ReadF64();
    planefit.b = ar.ReadF64();
    planefit.c = ar.ReadF64();
    planefit.order = ar.ReadU32();

    auto& d1 = display1;
    d1.displayMin = ar.ReadF64();
    d1.displayMax = ar.ReadF64();
    d1.hasExplicitRange = ar.ReadBool();
    d1.displayRangeMode = ar.ReadU32();
    if (schema >= 12) d1.displayFlag = ar.ReadBool();
    if (schema >= 3) {
        d1.contrast = ar.ReadF64();
        d1.colorTable = ar.ReadU32();
        d1.colorValue1 = ar.ReadU32();
        d1.colorValue2 = ar.ReadU32();
    }
    if (schema >= 6) {
        d1.colorFlag = readIntFlag(ar);
        readColorTable(ar, d1.colorEntries);
    }
    if (schema >= 5) {
        d1.hasColorTable = readIntFlag(ar);
        if (schema >= 7) d1.colorTableFlag = readIntFlag(ar);
        readColorTable(ar, d1.tableEntries);
        for (auto& v : d1.colorVectors) readVector(ar, v);
        if (schema >= 8) readVector(ar, d1.rangeVectors[0]);
        if (schema >= 9) readVector(ar, d1.rangeVector);
        if (schema >= 10) {
            d1.rangeCount = ar.ReadU32();
            readVector(ar, d1.rangeVectors[1]);
            readVector(ar, d1.rangeVectors[2]);
        }
    }

    auto& d2 = display2;
    d2.displayMin = ar.ReadF64();
    d2.displayMax = ar.ReadF64();
    d2.hasExplicitRange = ar.ReadBool();
    if (schema >= 4) {
        d2.colorTable = ar.ReadU32();
        d2.colorValue1 = ar.ReadU32();
        d2.colorValue2 = ar.ReadU32();
    }
    if (schema >= 6) d2.colorFlag = readIntFlag(ar);
    if (schema >= 11) {
        d2.hasColorTable = readIntFlag(ar);
        d2.colorTableFlag = readIntFlag(ar);
        readColorTable(ar, d2.tableEntries);
        for (auto& v : d2.colorVectors) readVector(ar, v);
        readColorTable(ar, d2.colorEntries);
        readVector(ar, d2.rangeVector);
        d2.rangeCount = ar.ReadU32();
        for (auto& v : d2.rangeVectors) readVector(ar, v);
        plistName = readString(ar);
    }

    hasPlanefitText = ar.ReadBool();
    planefitDesc = readString(ar);
    hasSecondScale = ar.ReadBool();
    readGroup(ar, forceZOffset);
    readGroup(ar, rampBegin);
    readGroup(ar, rampEnd);
    readGroup(ar, rampSize);
    readGroup(ar, secondScale);
    secondScaleFactor = ar.ReadF64();
    readGroup(ar, thirdScale);
    highSpeedSamples = ar.ReadU32();
    highSpeedDataType = readString(ar);
    hsdcRate = ar.ReadF64();
    highSpeedHardScale = readUnitized(ar);
    highSpeedSoftScale = readUnitized(ar);
    pointsPerCurve = ar.ReadU32();
    forcePhaseOffset = ar.ReadF64();
    avePoints = ar.ReadU32();
    effectiveBw = ar.ReadU32();
    springConstant = ar.ReadF64();
    retracePoints = ar.ReadU32();
    tracePoints = ar.ReadU32();
    invert = readString(ar);
    forceDisplayMode = readString(ar);
    xDataType = readString(ar);
    dataTypeDesc = readString(ar);
    dataLength = ar.ReadU32();
    dataOffset = ar.ReadU64();
    scaleBits = ar.ReadU32();
    bitsPerPixel = ar.ReadU32();
    if (schema >= 17) {
        tipRadius = ar.ReadF64();
        tipHalfAngle = ar.ReadF64();
        samplePoissonRatio = ar.ReadF64();
    }
    const std::uint32_t size = ar.ReadU32();
    // The record tells of samples that it does not carry: a borrowed buffer of
    // another length would be read past its end.
    if (size != dataSize) {
        data = nullptr;
    }
    dataSize = size;
    wasFlag = ar.ReadBool();
    linesWereSet = ar.ReadBool();
    samplesWereSet = ar.ReadBool();
    flag4 = ar.ReadBool();
    if (schema >= 5) ecFunction = readString(ar);
    if (schema >= 13) itemFlag = readIntFlag(ar);
    if (schema >= 14) {
        halfAngle1 = readFloatBits(ar);
        halfAngle2 = readFloatBits(ar);
    }
    if (schema >= 15) zOffset = static_cast<std::int64_t>(ar.ReadU64());
    if (schema >= 16) unitSystem = readString(ar);
    if (schema >= 18) {
        itemValue = ar.ReadF64();
        itemFlag2 = ar.ReadBool();
    }
    if (schema >= 19) {
        captureStartLine = ar.ReadU32();
        scanLines = ar.ReadU32();
    }
}

void OLDataItem::WriteRecord(Archive& ar) const {
    if (!ar.IsStoring()) {
        throw ArchiveException(ArchiveException::readOnly);
    }
    ar.WriteU32(numberOfLines);
    ar.WriteU32(samplesPerLine);
    writeUnitized(ar, scanSize);
    writeUnitized(ar, scanSizeY);
    ar.WriteF32(aspectRatio);
    ar.WriteF32(zMagnify);
    ar.WriteF32(zScaleSw);
    ar.WriteF32(zScaleHw);
    ar.WriteF32(scalingFactor);
    writeFloatBits(ar, rotateAngle);
    ar.WriteF64(zSensitivity);
    for (const auto* s : {&zSensitivityUnits, &zSensitivityName, &zSensitivitySection, &magnifyText,
                          &sensitivityText, &zText}) {
        writeString(ar, *s);
    }
    writeUnitized(ar, dataScale);
    for (const auto* s : {&dataScaleName, &dataName, &lineDirection, &frameDirection, &scanLine, &reservedText, &note}) {
        writeString(ar, *s);
    }
    ar.WriteU32(validStartX);
    ar.WriteU32(validStartY);
    ar.WriteU32(validLenX);
    ar.WriteU32(validLenY);
    ar.WriteF64(planefit.a);
    ar.WriteF64(planefit.b);
    ar.WriteF64(planefit.c);
    ar.WriteU32(planefit.order);

    const auto& d1 = display1;
    ar.WriteF64(d1.displayMin);
    ar.WriteF64(d1.displayMax);
    ar.WriteBool(d1.hasExplicitRange);
    ar.WriteU32(d1.displayRangeMode);
    ar.WriteBool(d1.displayFlag);
    ar.WriteF64(d1.contrast);
    ar.WriteU32(d1.colorTable);
    ar.WriteU32(d1.colorValue1);
    ar.WriteU32(d1.colorValue2);
    writeIntFlag(ar, d1.colorFlag);
    writeColorTable(ar, d1.colorEntries);
    writeIntFlag(ar, d1.hasColorTable);
    writeIntFlag(ar, d1.colorTableFlag);
    writeColorTable(ar, d1.tableEntries);
    for (const auto& v : d1.colorVectors) writeVector(ar, v);
    writeVector(ar, d1.rangeVectors[0]);
    writeVector(ar, d1.rangeVector);
    ar.WriteU32(d1.rangeCount);
    writeVector(ar, d1.rangeVectors[1]);
    writeVector(ar, d1.rangeVectors[2]);

    const auto& d2 = display2;
    ar.WriteF64(d2.displayMin);
    ar.WriteF64(d2.displayMax);
    ar.WriteBool(d2.hasExplicitRange);
    ar.WriteU32(d2.colorTable);
    ar.WriteU32(d2.colorValue1);
    ar.WriteU32(d2.colorValue2);
    writeIntFlag(ar, d2.colorFlag);
    writeIntFlag(ar, d2.hasColorTable);
    writeIntFlag(ar, d2.colorTableFlag);
    writeColorTable(ar, d2.tableEntries);
    for (const auto& v : d2.colorVectors) writeVector(ar, v);
    writeColorTable(ar, d2.colorEntries);
    writeVector(ar, d2.rangeVector);
    ar.WriteU32(d2.rangeCount);
    for (const auto& v : d2.rangeVectors) writeVector(ar, v);
    writeString(ar, plistName);

    ar.WriteBool(hasPlanefitText);
    writeString(ar, planefitDesc);
    ar.WriteBool(hasSecondScale);
    writeGroup(ar, forceZOffset);
    writeGroup(ar, rampBegin);
    writeGroup(ar, rampEnd);
    writeGroup(ar, rampSize);
    writeGroup(ar, secondScale);
    ar.WriteF64(secondScaleFactor);
    writeGroup(ar, thirdScale);
    ar.WriteU32(highSpeedSamples);
    writeString(ar, highSpeedDataType);
    ar.WriteF64(hsdcRate);
    writeUnitized(ar, highSpeedHardScale);
    writeUnitized(ar, highSpeedSoftScale);
    ar.WriteU32(pointsPerCurve);
    ar.WriteF64(forcePhaseOffset);
    ar.WriteU32(avePoints);
    ar.WriteU32(effectiveBw);
    ar.WriteF64(springConstant);
    ar.WriteU32(retracePoints);
    ar.WriteU32(tracePoints);
    writeString(ar, invert);
    writeString(ar, forceDisplayMode);
    writeString(ar, xDataType);
    writeString(ar, dataTypeDesc);
    ar.WriteU32(dataLength);
    ar.WriteU64(dataOffset);
    ar.WriteU32(scaleBits);
    ar.WriteU32(bitsPerPixel);
    ar.WriteF64(tipRadius);
    ar.WriteF64(tipHalfAngle);
    ar.WriteF64(samplePoissonRatio);
    ar.WriteU32(dataSize);
    ar.WriteBool(wasFlag);
    ar.WriteBool(linesWereSet);
    ar.WriteBool(samplesWereSet);
    ar.WriteBool(flag4);
    writeString(ar, ecFunction);
    writeIntFlag(ar, itemFlag);
    writeFloatBits(ar, halfAngle1);
    writeFloatBits(ar, halfAngle2);
    ar.WriteU64(static_cast<std::uint64_t>(zOffset));
    writeString(ar, unitSystem);
    ar.WriteF64(itemValue);
    ar.WriteBool(itemFlag2);
    ar.WriteU32(captureStartLine);
    ar.WriteU32(scanLines);
}

void OLDataItem::Serialize(Archive& ar) {
    if (ar.IsStoring()) {
        ar.WriteClass(runtimeClass);
        WriteRecord(ar);
        return;
    }
    // An archive written by an older program may lack the class header: the
    // class name is looked for at byte 6, and without it schema 1 is assumed.
    const std::string name = runtimeClass.className;
    auto& file = ar.GetFile();
    const std::uint64_t length = file.GetLength();
    char probe[100] = {};
    file.Seek(0);
    const std::size_t got = file.Read(probe, static_cast<std::size_t>(std::min<std::uint64_t>(length, sizeof probe)));
    file.Seek(0);
    const bool named = got >= 6 + name.size() && std::memcmp(probe + 6, name.data(), name.size()) == 0;
    if (named) {
        ar.ReadClass();
    } else {
        ar.SetObjectSchema(1);
    }
    ReadRecord(ar);
}
