#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <orv_sys/export.h>

namespace OrvSys
{

// For makers of documents.

/// An object of PDF syntax kept whole: what a file says where the model has no type of its own for it
/// (ISO 32000-1, 7.3). There are no indirect references in it; whoever makes one resolves them first.
///
/// An object is immutable and shares its state, so that a copy costs one reference count, and any number
/// of threads may read one. Two bounds hold by construction, so that no operation can exhaust the stack
/// or run for ever on an object from a hostile file: MaxDepth levels of nesting, and MaxNodes objects and
/// MaxBytes bytes when shared parts are counted each time that they occur. A maker that would go beyond
/// one of them throws std::length_error.
class ORV_EXPORT PdfObject
{
public:
    enum class Kind : std::uint32_t
    {
        Null,
        Boolean,
        Integer,
        Real,
        String,
        Name,
        Array,
        Dictionary,
        Stream
    };

    using Items = std::vector<PdfObject>;
    using Entries = std::map<std::string, PdfObject>; ///< Keys without the slash, in byte order.

    /// Levels of arrays, dictionaries and streams; a scalar has none. Real files stay below twenty.
    static constexpr std::size_t MaxDepth = 100;
    static constexpr std::size_t MaxNodes = 4'000'000;
    static constexpr std::size_t MaxBytes = std::size_t{1} << 30;

    /// The null object.
    PdfObject() = default;

    static PdfObject Null();
    static PdfObject Boolean(bool value);
    static PdfObject Integer(std::int64_t value);

    /// A real number whose text is kept as the file has it. Throws std::invalid_argument unless the text is
    /// an optional sign and decimal digits with at most one point among them.
    static PdfObject Real(std::string text);

    /// A real number written as the shortest decimal, without an exponent, that reads back as `value`.
    /// Throws std::invalid_argument if it is not finite.
    static PdfObject Real(double value);

    /// Any bytes.
    static PdfObject String(std::string bytes);

    /// A name without its slash, escapes already resolved.
    static PdfObject Name(std::string name);

    static PdfObject Array(Items items);

    /// Entries whose value is null are left out, as they are equivalent to missing ones.
    static PdfObject Dictionary(Entries entries);

    /// A stream: its dictionary without /Length, which is dropped if given, and its bytes as the file has
    /// them, filters still applied. Throws std::invalid_argument if `dictionary` is of another kind.
    static PdfObject Stream(const PdfObject& dictionary, std::string rawBytes);

    Kind GetKind() const;
    bool IsNull() const { return GetKind() == Kind::Null; }
    bool IsBoolean() const { return GetKind() == Kind::Boolean; }
    bool IsInteger() const { return GetKind() == Kind::Integer; }
    bool IsReal() const { return GetKind() == Kind::Real; }
    bool IsNumber() const { return IsInteger() || IsReal(); }
    bool IsString() const { return GetKind() == Kind::String; }
    bool IsName() const { return GetKind() == Kind::Name; }
    bool IsArray() const { return GetKind() == Kind::Array; }
    bool IsDictionary() const { return GetKind() == Kind::Dictionary; }
    bool IsStream() const { return GetKind() == Kind::Stream; }

    /// Whether this is the name `name`.
    bool IsName(const std::string& name) const;

    /// Whether a stream occurs anywhere in it. Such an object can't stand in a content stream.
    bool ContainsStream() const;

    /// The getters below throw std::logic_error on an object of another kind. References live as long as
    /// any copy of the object.
    bool GetBoolean() const;
    std::int64_t GetInteger() const;

    /// The value of an integer or a real.
    double GetNumber() const;

    /// The text of a real, bytes of a string, characters of a name.
    const std::string& GetText() const;

    const Items& GetItems() const;

    /// The entries of a dictionary, or of a stream's dictionary.
    const Entries& GetEntries() const;

    /// A stream's dictionary as an object.
    PdfObject GetDictionary() const;

    /// A stream's bytes, still encoded.
    const std::string& GetRawBytes() const;

    /// The value at `key` of a dictionary or stream; the null object if there is none or if this is an
    /// object of another kind.
    PdfObject Find(const std::string& key) const;

    /// PDF syntax in the classic locale, with entries in the order of their keys: the same object always
    /// gives the same text, which may stand in a content stream unless ContainsStream(). Strings are written
    /// as literals, or in hexadecimal where that is shorter. A stream is written with its /Length.
    std::string Serialize() const;

    /// 64-bit digest of the value: equal for equal objects, the same on every machine and in every run. It
    /// was taken when the object was made, so the call costs nothing.
    std::uint64_t GetDigest() const;

    /// The digest in 16 lower-case hexadecimal digits.
    std::string GetDigestText() const;

    /// Same value, however deep. Numbers are equal if their decimals are (1, 1.0 and +1.00 are), since PDF
    /// lets an integer stand for a real; everything else is compared byte by byte. Objects that differ are
    /// told apart by their digests at once.
    friend ORV_EXPORT bool operator==(const PdfObject& left, const PdfObject& right);
    friend bool operator!=(const PdfObject& left, const PdfObject& right) { return !(left == right); }

private:
    struct State;

    explicit PdfObject(std::shared_ptr<const State> givenState);

    const State& Require(Kind kind) const;

    std::shared_ptr<const State> state; // Null for the null object.
};

} // namespace OrvSys
