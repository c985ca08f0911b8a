#pragma once

#include <cstdint>
#include <string>

#include <orv_sys/export.h>

namespace OrvDoc
{

/// How `Document::Create` reads. A value; default-constructed it opens what needs no password, within limits
/// that no sensible file meets.
class ORV_EXPORT ReadOptions
{
public:
    /// What a file may ask of the reader, so that a hostile one cannot take the machine's memory or run the
    /// stack out. Each limit is the largest value that is still read; what goes beyond is left out, with an
    /// active error that names the limit, its value and the place.
    struct Limits
    {
        /// Levels of arrays and dictionaries within one object, in the file or among a content stream's
        /// operands. Real objects stay below 20. What the model keeps as an `OrvSys::PdfObject` has at most
        /// that class's `MaxDepth`, also under a larger limit.
        std::uint32_t objectNesting = 100;

        /// Levels of `q`, marked content and text objects within one content stream. Some producers never
        /// close what they open on a page; the objects that the reader makes are walked recursively by many
        /// users.
        std::uint32_t contentNesting = 10000;

        /// Levels of forms, tiling patterns, soft masks and glyph procedures within one another. Real artwork
        /// stays below 20. Each level is an interpreter on the stack.
        std::uint32_t formNesting = 64;

        /// Levels of the page tree. Balanced trees have fewer than 10; some producers make a chain with one
        /// level for a few pages, hence the room.
        std::uint32_t pageTreeNesting = 1000;

        /// Levels of the order tree of layers. Viewers show fewer than 10.
        std::uint32_t layerOrderNesting = 64;

        /// Pages. The largest real files, printed transaction records, have some hundred thousand.
        std::uint64_t pages = 500000;

        /// Indirect objects in the file. The largest number that ISO 32000-1, Annex C.2 lets a conforming
        /// reader expect.
        std::uint64_t indirectObjects = 8388607;

        /// Bytes of one content stream after its filters; the parts of a page's content count together. Maps
        /// and drawings reach some ten million bytes, seldom a hundred. Content is held whole while it is
        /// read.
        std::uint64_t contentStreamBytes = UINT64_C(256) << 20;

        /// Bytes of all contents of a document together after their filters, beyond 50 times the length of
        /// the file, each counted whenever it is read. Real ones are three to ten times as long as their
        /// deflated form; deflate can make it a thousand times, any number of pages can share one, and what
        /// is made of a byte takes up to 50 bytes of memory.
        std::uint64_t contentBytes = UINT64_C(16) << 20;

        /// Bytes of one profile, font program, character map, function or mesh of a shading after its
        /// filters. The largest, fonts of all characters of China, Japan and Korea and profiles of many
        /// colorants, have some ten million. They are held whole, and some of them twice.
        std::uint64_t resourceBytes = UINT64_C(64) << 20;

        /// Bytes of any other single stream after its filters, which are pictures. One of 16384 by 16384
        /// pixels in four channels of 8 bits has just that size. Deflate can blow a kilobyte up to a
        /// megabyte, so the length in the file says nothing.
        std::uint64_t streamBytes = UINT64_C(1) << 30;

        /// Bytes that all decoded streams of a document take, each counted whenever it is decoded anew.
        /// Bounds the time that a file of many streams at the limit above takes to some minutes; to get there
        /// it has to have 60 million bytes, as deflate makes at most a thousand of one. A scanned book of a
        /// thousand pages has about a tenth of the limit.
        std::uint64_t documentBytes = UINT64_C(64) << 30;

        /// Content objects of one content, groups included. The densest real drawings have one or two
        /// millions. An object takes some hundred bytes of memory, and a content stream can ask for one with
        /// every few bytes.
        std::uint64_t contentObjects = 3000000;

        /// Groups of one content that are made a second time, since clips and marked content overlap. Real
        /// pages have some hundred; each overlap can ask for as many as there are levels.
        std::uint64_t groupCopies = 100000;

        /// Matrices and clips of one content that are corrected because a group with a matrix of its own ends
        /// before the states that began in it. The writer makes no such content.
        std::uint64_t groupCorrections = 1000000;

        /// Operands in front of one operator; 64 are read in any case. A separation colour has as many as it
        /// has colorants, and the other operators at most six; arrays count once. ISO 32000-1, Annex C.2
        /// gives DeviceN 32 colorants, and files go beyond that.
        std::uint32_t operands = 1024;

        /// Elements of all arrays and dictionaries in front of one operator. The longest real ones are the
        /// strings of `TJ` and the tables of inline images.
        std::uint64_t operandElements = 1000000;

        /// Bytes of one string or name among the operands.
        std::uint64_t operandBytes = UINT64_C(64) << 20;

        /// Segments of one path. Traced drawings and maps have paths of some millions; a segment takes up to
        /// 56 bytes.
        std::uint64_t pathSegments = 10000000;

        /// Lengths of one dash pattern. Each stroke has its own pattern, and an operator of five bytes can
        /// give the next stroke another one; real patterns have up to a dozen.
        std::uint32_t dashElements = 256;

        /// Samples of one picture (width times height times channels), before any memory is taken for them.
        /// JPX and DCT data give dimensions of their own that `streamBytes` does not see.
        std::uint64_t pictureSamples = UINT64_C(1) << 30;

        /// Colorants of one colour space; the model takes at most 256, also under a larger limit. DeviceN has
        /// at most 32 by ISO 32000-1, Annex C.2; the field leaves room for files that go beyond it.
        std::uint32_t colorants = 256;

        /// Samples of the table of one sampled function (product of the sizes times outputs). A table of four
        /// inputs with 33 steps and four outputs has 4.7 million.
        std::uint64_t functionSamples = UINT64_C(64) << 20;

        /// Levels of functions within stitching functions, and of braces in a calculator function.
        std::uint32_t functionNesting = 32;

        /// Tokens of one calculator function, braces included. Real ones have at most some thousand.
        std::uint64_t calculatorTokens = 100000;

        /// Active errors that one content keeps, and one document; of those that are found when the document
        /// is read already, it keeps as many again. A damaged stream can have an error for each of its
        /// operators; the last entry tells that there were more.
        std::uint64_t errors = 10000;
    };

    ReadOptions();
    ~ReadOptions();
    ReadOptions(const ReadOptions&);
    ReadOptions& operator=(const ReadOptions&);

    /// UTF-8, for files that are encrypted: the user's or the owner's password. Empty is the password of
    /// files that open without one.
    std::string password;

    Limits limits;
};

} // namespace OrvDoc
