#pragma once

// A named parameter of an instrument's parameter list: identity, flags, two
// unit codes of the numbered vocabulary (UnitVocabulary.h), a text form
// ("\name: value\r\n"), a props line and a 20-byte binary form. The base holds
// no value; concrete parameters override the value operations, most of which
// answer with nothing here. A parameter lives on the stack of the call that
// needs it and is never copied.
//
// Texts come in and go out as std::string: an output given as a null pointer
// is not written. Input cursors are string views and byte spans, which the
// parsers advance past what they consumed and never read beyond.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class parm {
public:
    explicit parm(std::uint64_t owner = 0);
    parm(const parm&) = delete;
    parm& operator=(const parm&) = delete;

    // The virtual operations, in the order of the family's table.
    virtual void SetOwner(std::uint64_t newOwner);
    // Written between the backslash and the name in the text form.
    virtual void WritePrefix(std::string& cursor);
    // Told just before the binary form is packed.
    virtual void OnPack();
    virtual char* Allocate(std::size_t size);
    virtual ~parm();
    virtual int PrepareValue();
    // The value type read through the link table (1 to 9, see
    // ReadLinkedInteger); 0 for a parameter without a value.
    virtual int ValueKind() const;
    virtual void CommitValue();
    virtual void GetValueText(std::string* buffer);
    virtual std::uint32_t GetId() const;
    virtual int ResetValue();
    virtual void BeginEdit();
    virtual void EndEdit();
    // 2 names unitIndex2, 3 unitIndex3; any other number answers itself.
    virtual std::uint32_t GetUnit(std::uint32_t which) const;
    virtual std::uint32_t GetDisplayUnit(std::uint32_t which, int detail) const;
    virtual void CopyUnitName(std::string* buffer, std::uint32_t which, int detail) const;
    virtual void CopyDisplayUnitName(std::string* buffer, std::uint32_t which) const;
    virtual void SetUnit(std::uint32_t unit, std::uint32_t which);
    // Always throws the text "Illegal call parm::set_units" (a const char*).
    virtual void set_units();
    virtual bool IsEnabled() const;
    virtual void GetTitle(std::string* buffer) const;
    virtual std::uint32_t GetFlags() const;
    // Appends "\<prefix><short name>: <value>\r\n" when the parameter was
    // written, or when useWriteAlways and writeAlways are both set; a packed
    // parameter is present but writes nothing. Answers whether it is present.
    virtual bool WriteText(std::string& cursor, bool useWriteAlways);
    virtual void WriteValueText(std::string& cursor);
    // A "props <number>" line, looked for in its first 23 characters.
    virtual void ParseProps(std::string_view& cursor);
    virtual void PackAndNotify(std::vector<std::uint8_t>& cursor);
    // Five little-endian u32: id, isSet, written, isLinked (0 without a link), packed.
    virtual void PackBinary(std::vector<std::uint8_t>& cursor) const;
    virtual void Reset();
    // False, with nothing taken, when fewer than 20 bytes remain.
    virtual bool UnpackBinary(std::span<const std::uint8_t>& cursor);
    // Cuts the text at its first ASCII letter: "12.5nm" leaves "12.5".
    virtual void TrimUnit(std::string& text) const;
    virtual void GetLimits(std::string* name, int which, std::string* value, std::string* unit);
    virtual int Clamp();
    virtual void GetLimitsTrial(std::string* name, int which, std::string* value, std::string* unit);
    // Null: keep the trial value; a text: the value of that text.
    virtual void EndTrial(const std::string* text);
    virtual void GetValueString(std::string* buffer);
    virtual bool Step(std::string* name, int mode, std::int16_t delta, std::string* value, std::string* unit);
    virtual void SetTrial(bool flag);

    // The integer value behind the link table by kind: 1 shortLink; 2, 6
    // floatLink truncated; 3, 7 boolLink; 4, 5 textLink as a decimal number;
    // 8 intLink; 9 doubleLink truncated. Any other kind, a null link, a
    // non-finite or out-of-range number give 0.
    int ReadLinkedInteger(int kind) const;
    int ReadLinkedInteger() const { return ReadLinkedInteger(ValueKind()); }

    // Cuts a ":" suffix off the name, once, into a copy of the parameter's own.
    void MakeShortName();
    // Copies text into the inline title buffer (at most 127 bytes) and shows it.
    void SetTitle(std::string_view text);

    static constexpr std::size_t kTitleCapacity = 128;
    static constexpr std::size_t kBinarySize = 20;

    // Fields, in declared order.
    parm* link = nullptr;
    std::uint32_t linkedId = 0;
    std::uint8_t isSet = 0;
    std::uint8_t isLinked = 0;
    std::uint8_t ownsName = 0;
    std::uint32_t reserved28 = 0;
    const char* name = nullptr;  // borrowed unless ownsName
    const char* title = inlineTitle;
    char inlineTitle[kTitleCapacity] = {};
    std::uint32_t id = 0;
    std::uint32_t unitIndex2 = 1;
    std::uint32_t unitIndex3 = 1;
    std::uint16_t step = 0;
    std::int16_t stepAccumulator = 0;
    std::uint8_t written = 0;
    std::uint8_t changed = 0;
    std::uint8_t trial = 0;
    std::uint8_t packed = 0;
    std::uint8_t writeAlways = 0;
    std::uint64_t owner;
    std::uint32_t displayKind = 1;
    std::unique_ptr<std::uint8_t[]> extra;
    double* doubleLink = nullptr;
    float* floatLink = nullptr;
    std::int32_t* intLink = nullptr;
    std::int16_t* shortLink = nullptr;
    std::uint8_t* boolLink = nullptr;
    const char* textLink = nullptr;
    std::uint16_t kindA = 0;
    std::uint16_t kindB = 0;
    std::uint32_t kindC = 0;
    std::uint32_t props = 0;
    std::uint8_t hasProps = 0;
};
