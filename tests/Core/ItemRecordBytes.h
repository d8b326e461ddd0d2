#pragma once

// Item records built byte by byte from the record's field table, in either of
// its two forms: the form that ReadRecord takes (the seven int-flags as four
// bytes) or the form that WriteRecord gives (those flags as one byte).
//
// Every field gets a value made from a seed and the field's position, so two
// records of different seeds differ in every field. The written form can also
// say what an item holds after reading a record of some schema over an item
// that held the record of another seed: fields of the schema come from the
// new seed, the others stay, vectors are appended to, and below schema 2 the
// second scan size is a copy of the first.

#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace ItemRecordBytes {

enum class Form { read, written };

class Emitter {
public:
    // read: the fields of schema, valued from seed. written: every field,
    // those of schema from seed and the others from older; an older of 0 is
    // a new item, which has no vector words to append to.
    Emitter(Form form, std::uint32_t schema, int seed, int older = 0)
        : form_(form), schema_(schema), seed_(seed), older_(older) {}

    std::vector<std::uint8_t> bytes;
    // Where each field that was emitted begins, by name.
    std::map<std::string, std::size_t> offsets;
    // Where the one-byte flags of the written form stand.
    std::vector<std::size_t> intFlagOffsets;
    // Chosen values instead of the seeded ones, by field name.
    std::map<std::string, std::uint64_t> integers;
    std::map<std::string, double> reals;

    void U32(std::uint32_t since, const std::string& name) {
        if (begin(since, name)) {
            put(integer(name, number(seedFor(since))), 4);
        }
    }
    void U64(std::uint32_t since, const std::string& name) {
        if (begin(since, name)) {
            const int s = seedFor(since);
            put(integer(name, number(s) | (static_cast<std::uint64_t>(s) << 40)), 8);
        }
    }
    void F32(std::uint32_t since, const std::string& name) {
        if (begin(since, name)) {
            const float f = static_cast<float>(real(name, number(seedFor(since)) + 0.25));
            std::uint32_t bits;
            std::memcpy(&bits, &f, 4);
            put(bits, 4);
        }
    }
    void F64(std::uint32_t since, const std::string& name) {
        if (begin(since, name)) {
            putReal(real(name, number(seedFor(since)) + 0.125));
        }
    }
    void Bool(std::uint32_t since, const std::string& name) {
        if (begin(since, name)) {
            put(integer(name, flag(seedFor(since))), 1);
        }
    }
    // Four bytes compared with 1 when read; one byte when written.
    void IntFlag(std::uint32_t since, const std::string& name) {
        if (begin(since, name)) {
            if (form_ == Form::written) {
                intFlagOffsets.push_back(bytes.size());
            }
            put(integer(name, flag(seedFor(since))), form_ == Form::written ? 1 : 4);
        }
    }
    void Text(std::uint32_t since, const std::string& name) {
        if (begin(since, name)) {
            putText(text(seedFor(since)));
        }
    }
    void Unitized(std::uint32_t since, const std::string& name) {
        if (begin(since, name)) {
            const int s = seedFor(since);
            lastUnitized_ = {number(s) + 0.5, unit(s)};
            putReal(lastUnitized_.value);
            putText(lastUnitized_.unit);
        }
    }
    // Below its schema the field is not in the record, and the item copies the
    // unitized value read just before.
    void UnitizedOrCopy(std::uint32_t since, const std::string& name) {
        if (form_ == Form::written && !present(since)) {
            ++index_;
            offsets[name] = bytes.size();
            putReal(lastUnitized_.value);
            putText(lastUnitized_.unit);
            return;
        }
        Unitized(since, name);
    }
    void Vector(std::uint32_t since, const std::string& name) {
        if (begin(since, name)) {
            std::vector<std::uint32_t> words;
            if (form_ == Form::written && older_ != 0) {
                words = vector(older_);
            }
            if (present(since)) {
                const auto fresh = vector(seed_);
                words.insert(words.end(), fresh.begin(), fresh.end());
            }
            put(words.size(), 4);
            for (std::uint32_t w : words) {
                put(w, 4);
            }
        }
    }
    void Colours(std::uint32_t since, const std::string& name) {
        if (begin(since, name)) {
            const int s = seedFor(since);
            for (int k = 0; k < 768; ++k) {
                bytes.push_back(static_cast<std::uint8_t>(s * 37 + index_ * 11 + k));
            }
        }
    }

private:
    struct UnitizedField {
        double value = 0.0;
        std::string unit;
    };

    bool present(std::uint32_t since) const { return since <= schema_; }
    int seedFor(std::uint32_t since) const { return present(since) ? seed_ : older_; }
    bool begin(std::uint32_t since, const std::string& name) {
        ++index_;
        if (form_ == Form::read && !present(since)) {
            return false;
        }
        offsets[name] = bytes.size();
        return true;
    }
    std::uint64_t number(int s) const { return static_cast<std::uint64_t>(s) * 1000u + static_cast<std::uint64_t>(index_); }
    std::uint64_t flag(int s) const { return static_cast<std::uint64_t>((s + index_) % 2); }
    std::string text(int s) const {
        if (index_ % 7 == 3) {
            return {};
        }
        std::string t = "t" + std::to_string(s) + "_" + std::to_string(index_);
        if (index_ % 11 == 5) {
            t.append(300, 'x');  // past the one-byte length prefix
        }
        return t;
    }
    std::string unit(int s) const {
        static const char* const units[] = {"", "nm", "V", "mV", "m", "Hz", "nN"};
        return units[static_cast<std::size_t>(s + index_) % 7];
    }
    std::vector<std::uint32_t> vector(int s) const {
        std::vector<std::uint32_t> v;
        for (int k = 0; k <= (s + index_) % 3; ++k) {
            v.push_back(static_cast<std::uint32_t>(number(s) * 10 + static_cast<std::uint64_t>(k)));
        }
        return v;
    }
    std::uint64_t integer(const std::string& name, std::uint64_t seeded) const {
        auto it = integers.find(name);
        return it == integers.end() ? seeded : it->second;
    }
    double real(const std::string& name, double seeded) const {
        auto it = reals.find(name);
        return it == reals.end() ? seeded : it->second;
    }
    void put(std::uint64_t v, int size) {
        for (int i = 0; i < size; ++i) {
            bytes.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
        }
    }
    void putReal(double d) {
        std::uint64_t bits;
        std::memcpy(&bits, &d, 8);
        put(bits, 8);
    }
    // The record's string: a count, then the framework string when not empty.
    void putText(const std::string& t) {
        put(t.size(), 4);
        if (t.empty()) {
            return;
        }
        if (t.size() < 255) {
            put(t.size(), 1);
        } else {
            put(255, 1);
            put(t.size(), 2);
        }
        bytes.insert(bytes.end(), t.begin(), t.end());
    }

    Form form_;
    std::uint32_t schema_;
    int seed_;
    int older_;
    int index_ = 0;
    UnitizedField lastUnitized_;
};

inline void Group(Emitter& e, const std::string& name) {
    e.Unitized(0, name + ".value");
    e.F64(0, name + ".sensitivity");
    e.Text(0, name + ".unit");
}

// The record, field by field, with the schema from which each is present.
inline void Record(Emitter& e) {
    e.U32(0, "numberOfLines");
    e.U32(0, "samplesPerLine");
    e.Unitized(0, "scanSize");
    e.UnitizedOrCopy(2, "scanSizeY");
    for (const char* f : {"aspectRatio", "zMagnify", "zScaleSw", "zScaleHw", "scalingFactor", "rotateAngle"}) {
        e.F32(0, f);
    }
    e.F64(0, "zSensitivity");
    for (const char* f : {"zSensitivityUnits", "zSensitivityName", "zSensitivitySection", "magnifyText",
                          "sensitivityText", "zText"}) {
        e.Text(0, f);
    }
    e.Unitized(0, "dataScale");
    for (const char* f : {"dataScaleName", "dataName", "lineDirection", "frameDirection", "scanLine", "reservedText",
                          "note"}) {
        e.Text(0, f);
    }
    for (const char* f : {"validStartX", "validStartY", "validLenX", "validLenY"}) {
        e.U32(0, f);
    }
    e.F64(0, "planefit.a");
    e.F64(0, "planefit.b");
    e.F64(0, "planefit.c");
    e.U32(0, "planefit.order");

    e.F64(0, "d1.displayMin");
    e.F64(0, "d1.displayMax");
    e.Bool(0, "d1.hasExplicitRange");
    e.U32(0, "d1.displayRangeMode");
    e.Bool(12, "d1.displayFlag");
    e.F64(3, "d1.contrast");
    e.U32(3, "d1.colorTable");
    e.U32(3, "d1.colorValue1");
    e.U32(3, "d1.colorValue2");
    e.IntFlag(6, "d1.colorFlag");
    e.Colours(6, "d1.colorEntries");
    e.IntFlag(5, "d1.hasColorTable");
    e.IntFlag(7, "d1.colorTableFlag");
    e.Colours(5, "d1.tableEntries");
    e.Vector(5, "d1.colorVectors0");
    e.Vector(5, "d1.colorVectors1");
    e.Vector(5, "d1.colorVectors2");
    e.Vector(8, "d1.rangeVectors0");
    e.Vector(9, "d1.rangeVector");
    e.U32(10, "d1.rangeCount");
    e.Vector(10, "d1.rangeVectors1");
    e.Vector(10, "d1.rangeVectors2");

    e.F64(0, "d2.displayMin");
    e.F64(0, "d2.displayMax");
    e.Bool(0, "d2.hasExplicitRange");
    e.U32(4, "d2.colorTable");
    e.U32(4, "d2.colorValue1");
    e.U32(4, "d2.colorValue2");
    e.IntFlag(6, "d2.colorFlag");
    e.IntFlag(11, "d2.hasColorTable");
    e.IntFlag(11, "d2.colorTableFlag");
    e.Colours(11, "d2.tableEntries");
    e.Vector(11, "d2.colorVectors0");
    e.Vector(11, "d2.colorVectors1");
    e.Vector(11, "d2.colorVectors2");
    e.Colours(11, "d2.colorEntries");
    e.Vector(11, "d2.rangeVector");
    e.U32(11, "d2.rangeCount");
    e.Vector(11, "d2.rangeVectors0");
    e.Vector(11, "d2.rangeVectors1");
    e.Vector(11, "d2.rangeVectors2");
    e.Text(11, "plistName");

    e.Bool(0, "hasPlanefitText");
    e.Text(0, "planefitDesc");
    e.Bool(0, "hasSecondScale");
    for (const char* g : {"forceZOffset", "rampBegin", "rampEnd", "rampSize", "secondScale"}) {
        Group(e, g);
    }
    e.F64(0, "secondScaleFactor");
    Group(e, "thirdScale");
    e.U32(0, "highSpeedSamples");
    e.Text(0, "highSpeedDataType");
    e.F64(0, "hsdcRate");
    e.Unitized(0, "highSpeedHardScale");
    e.Unitized(0, "highSpeedSoftScale");
    e.U32(0, "pointsPerCurve");
    e.F64(0, "forcePhaseOffset");
    e.U32(0, "avePoints");
    e.U32(0, "effectiveBw");
    e.F64(0, "springConstant");
    e.U32(0, "retracePoints");
    e.U32(0, "tracePoints");
    for (const char* f : {"invert", "forceDisplayMode", "xDataType", "dataTypeDesc"}) {
        e.Text(0, f);
    }
    e.U32(0, "dataLength");
    e.U64(0, "dataOffset");
    e.U32(0, "scaleBits");
    e.U32(0, "bitsPerPixel");
    e.F64(17, "tipRadius");
    e.F64(17, "tipHalfAngle");
    e.F64(17, "samplePoissonRatio");
    e.U32(0, "dataSize");
    for (const char* f : {"wasFlag", "linesWereSet", "samplesWereSet", "flag4"}) {
        e.Bool(0, f);
    }
    e.Text(5, "ecFunction");
    e.IntFlag(13, "itemFlag");
    e.F32(14, "halfAngle1");
    e.F32(14, "halfAngle2");
    e.U64(15, "zOffset");
    e.Text(16, "unitSystem");
    e.F64(18, "itemValue");
    e.Bool(18, "itemFlag2");
    e.U32(19, "captureStartLine");
    e.U32(19, "scanLines");
}

// The class header that the archive writes before an item: 0xFFFF, the schema
// word with its versionable mark, the length of the name, the name.
inline std::vector<std::uint8_t> ClassHeader(std::uint16_t schema, const std::string& name = "OLDataItem") {
    std::vector<std::uint8_t> h = {0xFF, 0xFF, static_cast<std::uint8_t>(schema), static_cast<std::uint8_t>((schema >> 8) | 0x80),
                                   static_cast<std::uint8_t>(name.size()), static_cast<std::uint8_t>(name.size() >> 8)};
    h.insert(h.end(), name.begin(), name.end());
    return h;
}

// A record in the form that ReadRecord takes.
inline std::vector<std::uint8_t> ReadForm(std::uint32_t schema, int seed) {
    Emitter e(Form::read, schema, seed);
    Record(e);
    return e.bytes;
}

// What WriteRecord gives for an item that read the record of older at schema
// 19 and then the record of seed at schema.
inline std::vector<std::uint8_t> WrittenForm(std::uint32_t schema, int seed, int older) {
    Emitter e(Form::written, schema, seed, older);
    Record(e);
    return e.bytes;
}

inline std::vector<std::uint8_t> Joined(std::vector<std::uint8_t> a, const std::vector<std::uint8_t>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

}  // namespace ItemRecordBytes
