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

enum class Kind { u32, u64, f32, f64, boolean, intFlag, text, unitized, unitizedOrCopy, vector, colours, group };

struct Field {
    Kind kind;
    std::uint32_t since;  // the schema from which the field is in the record
    const char* name;
};

// The record in archive order. A group is a unitized value, its sensitivity
// and the sensitivity's unit.
inline const std::vector<Field>& RecordFields() {
    using K = Kind;
    static const std::vector<Field> fields = {
        {K::u32, 0, "numberOfLines"}, {K::u32, 0, "samplesPerLine"}, {K::unitized, 0, "scanSize"},
        {K::unitizedOrCopy, 2, "scanSizeY"}, {K::f32, 0, "aspectRatio"}, {K::f32, 0, "zMagnify"},
        {K::f32, 0, "zScaleSw"}, {K::f32, 0, "zScaleHw"}, {K::f32, 0, "scalingFactor"}, {K::f32, 0, "rotateAngle"},
        {K::f64, 0, "zSensitivity"}, {K::text, 0, "zSensitivityUnits"}, {K::text, 0, "zSensitivityName"},
        {K::text, 0, "zSensitivitySection"}, {K::text, 0, "magnifyText"}, {K::text, 0, "sensitivityText"},
        {K::text, 0, "zText"}, {K::unitized, 0, "dataScale"}, {K::text, 0, "dataScaleName"}, {K::text, 0, "dataName"},
        {K::text, 0, "lineDirection"}, {K::text, 0, "frameDirection"}, {K::text, 0, "scanLine"},
        {K::text, 0, "reservedText"}, {K::text, 0, "note"}, {K::u32, 0, "validStartX"}, {K::u32, 0, "validStartY"},
        {K::u32, 0, "validLenX"}, {K::u32, 0, "validLenY"}, {K::f64, 0, "planefit.a"}, {K::f64, 0, "planefit.b"},
        {K::f64, 0, "planefit.c"}, {K::u32, 0, "planefit.order"},
        // first display
        {K::f64, 0, "d1.displayMin"}, {K::f64, 0, "d1.displayMax"}, {K::boolean, 0, "d1.hasExplicitRange"},
        {K::u32, 0, "d1.displayRangeMode"}, {K::boolean, 12, "d1.displayFlag"}, {K::f64, 3, "d1.contrast"},
        {K::u32, 3, "d1.colorTable"}, {K::u32, 3, "d1.colorValue1"}, {K::u32, 3, "d1.colorValue2"},
        {K::intFlag, 6, "d1.colorFlag"}, {K::colours, 6, "d1.colorEntries"}, {K::intFlag, 5, "d1.hasColorTable"},
        {K::intFlag, 7, "d1.colorTableFlag"}, {K::colours, 5, "d1.tableEntries"}, {K::vector, 5, "d1.colorVectors0"},
        {K::vector, 5, "d1.colorVectors1"}, {K::vector, 5, "d1.colorVectors2"}, {K::vector, 8, "d1.rangeVectors0"},
        {K::vector, 9, "d1.rangeVector"}, {K::u32, 10, "d1.rangeCount"}, {K::vector, 10, "d1.rangeVectors1"},
        {K::vector, 10, "d1.rangeVectors2"},
        // second display
        {K::f64, 0, "d2.displayMin"}, {K::f64, 0, "d2.displayMax"}, {K::boolean, 0, "d2.hasExplicitRange"},
        {K::u32, 4, "d2.colorTable"}, {K::u32, 4, "d2.colorValue1"}, {K::u32, 4, "d2.colorValue2"},
        {K::intFlag, 6, "d2.colorFlag"}, {K::intFlag, 11, "d2.hasColorTable"}, {K::intFlag, 11, "d2.colorTableFlag"},
        {K::colours, 11, "d2.tableEntries"}, {K::vector, 11, "d2.colorVectors0"}, {K::vector, 11, "d2.colorVectors1"},
        {K::vector, 11, "d2.colorVectors2"}, {K::colours, 11, "d2.colorEntries"}, {K::vector, 11, "d2.rangeVector"},
        {K::u32, 11, "d2.rangeCount"}, {K::vector, 11, "d2.rangeVectors0"}, {K::vector, 11, "d2.rangeVectors1"},
        {K::vector, 11, "d2.rangeVectors2"}, {K::text, 11, "plistName"},
        // force block
        {K::boolean, 0, "hasPlanefitText"}, {K::text, 0, "planefitDesc"}, {K::boolean, 0, "hasSecondScale"},
        {K::group, 0, "forceZOffset"}, {K::group, 0, "rampBegin"}, {K::group, 0, "rampEnd"}, {K::group, 0, "rampSize"},
        {K::group, 0, "secondScale"}, {K::f64, 0, "secondScaleFactor"}, {K::group, 0, "thirdScale"},
        {K::u32, 0, "highSpeedSamples"}, {K::text, 0, "highSpeedDataType"}, {K::f64, 0, "hsdcRate"},
        {K::unitized, 0, "highSpeedHardScale"}, {K::unitized, 0, "highSpeedSoftScale"}, {K::u32, 0, "pointsPerCurve"},
        {K::f64, 0, "forcePhaseOffset"}, {K::u32, 0, "avePoints"}, {K::u32, 0, "effectiveBw"},
        {K::f64, 0, "springConstant"}, {K::u32, 0, "retracePoints"}, {K::u32, 0, "tracePoints"},
        {K::text, 0, "invert"}, {K::text, 0, "forceDisplayMode"}, {K::text, 0, "xDataType"},
        {K::text, 0, "dataTypeDesc"}, {K::u32, 0, "dataLength"}, {K::u64, 0, "dataOffset"}, {K::u32, 0, "scaleBits"},
        {K::u32, 0, "bitsPerPixel"}, {K::f64, 17, "tipRadius"}, {K::f64, 17, "tipHalfAngle"},
        {K::f64, 17, "samplePoissonRatio"}, {K::u32, 0, "dataSize"}, {K::boolean, 0, "wasFlag"},
        {K::boolean, 0, "linesWereSet"}, {K::boolean, 0, "samplesWereSet"}, {K::boolean, 0, "flag4"},
        {K::text, 5, "ecFunction"}, {K::intFlag, 13, "itemFlag"}, {K::f32, 14, "halfAngle1"},
        {K::f32, 14, "halfAngle2"}, {K::u64, 15, "zOffset"}, {K::text, 16, "unitSystem"}, {K::f64, 18, "itemValue"},
        {K::boolean, 18, "itemFlag2"}, {K::u32, 19, "captureStartLine"}, {K::u32, 19, "scanLines"},
    };
    return fields;
}

inline void Emit(Emitter& e, Kind kind, std::uint32_t since, const std::string& name) {
    switch (kind) {
        case Kind::u32: e.U32(since, name); break;
        case Kind::u64: e.U64(since, name); break;
        case Kind::f32: e.F32(since, name); break;
        case Kind::f64: e.F64(since, name); break;
        case Kind::boolean: e.Bool(since, name); break;
        case Kind::intFlag: e.IntFlag(since, name); break;
        case Kind::text: e.Text(since, name); break;
        case Kind::unitized: e.Unitized(since, name); break;
        case Kind::unitizedOrCopy: e.UnitizedOrCopy(since, name); break;
        case Kind::vector: e.Vector(since, name); break;
        case Kind::colours: e.Colours(since, name); break;
        case Kind::group:
            e.Unitized(since, name + ".value");
            e.F64(since, name + ".sensitivity");
            e.Text(since, name + ".unit");
            break;
    }
}

inline void Record(Emitter& e) {
    for (const Field& f : RecordFields()) {
        Emit(e, f.kind, f.since, f.name);
    }
}

// The class header that the archive writes before an item: 0xFFFF, the schema
// word with its versionable mark, the length of the name, the name.
inline std::vector<std::uint8_t> ClassHeader(std::uint16_t schema, const std::string& name = "OLDataItem") {
    // Sized once and filled in place: GCC 12 misreads an insert behind a
    // six-byte initializer list as a copy past its end.
    std::vector<std::uint8_t> h(6 + name.size());
    h[0] = 0xFF;
    h[1] = 0xFF;
    h[2] = static_cast<std::uint8_t>(schema);
    h[3] = static_cast<std::uint8_t>((schema >> 8) | 0x80);
    h[4] = static_cast<std::uint8_t>(name.size());
    h[5] = static_cast<std::uint8_t>(name.size() >> 8);
    std::copy(name.begin(), name.end(), h.begin() + 6);
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
