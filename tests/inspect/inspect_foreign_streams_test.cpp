#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "byte_string.h"
#include "program.h"
#include "readings.h"
#include "temporary_folder.h"

namespace kovran::test {
namespace {

const std::string extract_standard_input =
    "extract it with: ffmpeg -i FILE -c copy -bsf:v hevc_mp4toannexb out.hevc";

void expect_refusal(const std::string& stream, const std::string& kind, const std::string& advice) {
    SCOPED_TRACE(kind);
    for (const char* const verb : {"info", "nals", "dump", "trace", "differences"}) {
        SCOPED_TRACE(verb);
        const outcome result = program({verb, "-"}).input(stream).run();
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, "kovran: standard input: this is " + kind +
                                  ", not an H.265 byte stream; " + advice + '\n');
    }
    const temporary_folder folder;
    const std::string out = folder.write("out", "kept");
    EXPECT_EQ(program({"copy", "-", out}).input(stream).run().status, 2);
    EXPECT_EQ(read_file(out), "kept");
    EXPECT_EQ(program({"copy", "-", folder.file("new")}).input(stream).run().status, 2);
    EXPECT_FALSE(std::filesystem::exists(folder.file("new")));
}

// Packets of 188 bytes, each with the sync byte and the same contents.
std::string transport_stream(const std::string& contents, const std::string& before_packet) {
    std::string stream;
    for (int i = 0; i < 3; ++i) {
        std::string packet = bytes("47 0100 10") + contents;
        packet.resize(188, '\xff');
        stream += before_packet + packet;
    }
    return stream;
}

TEST(InspectForeignStreams, FilesOfBoxesAreNamed) {
    // Size, type, major brand, minor version, a compatible brand: "ftyp", "isom".
    expect_refusal(bytes("00000014 66747970 69736f6d 00000200 69736f6d"), "an MP4 file",
                   extract_standard_input);
    expect_refusal(bytes("00000014 66747970 71742020 00000200 71742020"), "a MOV file",  // "qt  "
                   extract_standard_input);
    expect_refusal(bytes("00000008 77696465 00001000 6d646174"), "a MOV file",  // "wide", "mdat"
                   extract_standard_input);
    expect_refusal(bytes("00000014 66747970 68656963 00000000 6d696631"), "an HEIF file",  // "heic"
                   "extract the H.265 image item from it first");
}

std::string first_box(const std::string& type, const std::string& brand) {
    return bytes("00000014") + type + brand + bytes("00000000") + brand;
}

void expect_kind(const std::string& stream, const std::string& kind) {
    const outcome result = program({"nals", "-"}).input(stream).run();
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err.find("kovran: standard input: this is " + kind + ','), 0U) << result.err;
}

TEST(InspectForeignStreams, EachFirstBoxAndBrandIsKnown) {
    for (const char* const brand :
         {"heic", "heix", "heim", "heis", "hevc", "hevx", "mif1", "msf1"}) {
        expect_kind(first_box("ftyp", brand), "an HEIF file");
    }
    for (const char* const brand : {"isom", "iso5", "mp42", "dash", "avc1", "hvc1"}) {
        expect_kind(first_box("ftyp", brand), "an MP4 file");
    }
    expect_kind(first_box("ftyp", "qt  "), "a MOV file");
    for (const char* const type : {"moov", "mdat", "wide", "free", "skip"}) {
        expect_kind(first_box(type, "    "), "a MOV file");
    }
    EXPECT_LE(program({"nals", "-"}).input(first_box("none", "heic")).run().status, 1);
}

TEST(InspectForeignStreams, MatroskaIsNamed) {
    expect_refusal(bytes("1a45dfa3 a3 4286 81 01"), "a Matroska or WebM file",
                   extract_standard_input);
}

// A start code and a parameter set of H.265 in the packets do not make them a byte stream.
TEST(InspectForeignStreams, TransportStreamsAreNamed) {
    const std::string contents = bytes("00000001 40010c");
    const std::string advice = "extract it with: ffmpeg -i FILE -c copy out.hevc";
    expect_refusal(transport_stream(contents, ""), "an MPEG transport stream", advice);
    expect_refusal(transport_stream(contents, bytes("00112233")), "an MPEG transport stream",
                   advice);
}

// The sync byte of a third packet is not there.
TEST(InspectForeignStreams, TwoPacketsAreNoTransportStream) {
    std::string stream = transport_stream("", "").substr(0, 2 * 188);
    stream += bytes("00000001 40010c");
    const outcome result = program({"nals", "-", "--type", "VPS"}).input(stream).run();
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.out.find("VPS_NUT"), std::string::npos);
}

// profile_idc of table A-1 of each profile of H.264.
TEST(InspectForeignStreams, EveryProfileOfH264IsKnown) {
    for (unsigned int profile = 0; profile < 256; ++profile) {
        const std::set<unsigned int> profiles = {44,  66,  77,  83,  86,  88,  100, 110,
                                                 118, 122, 128, 134, 135, 138, 139, 244};
        const std::string stream =
            bytes("000001 67") + static_cast<char>(profile) + bytes("0028 000001 68eb 000001 6588");
        if (profiles.count(profile) == 1) {
            expect_kind(stream, "an H.264 stream");
        } else {
            EXPECT_LE(program({"nals", "-"}).input(stream).run().status, 1) << profile;
        }
    }
}

// Of H.264 and H.266, both parameter sets have to be there.
TEST(InspectForeignStreams, OneParameterSetIsNotEnough) {
    for (const char* const stream : {"000001 67640028 000001 6588", "000001 68eb 000001 6588",
                                     "000001 0079 0a 000001 0039", "000001 0081 00 000001 0039"}) {
        EXPECT_LE(program({"nals", "-"}).input(bytes(stream)).run().status, 1) << stream;
    }
}

// The parameter sets of a small stream of each standard, cut off behind what tells the kind.
TEST(InspectForeignStreams, OtherVideoStandardsAreNamed) {
    expect_refusal(bytes("00000001 09f0 00000001 67640028 00000001 68eb 000001 0605 000001 6588"),
                   "an H.264 stream", "kovran reads only H.265");
    expect_refusal(bytes("000001 060501 000001 274d401f 000001 28ee 000001 2588"),
                   "an H.264 stream", "kovran reads only H.265");
    expect_refusal(bytes("00000001 0071 10 00000001 0079 0a 00000001 0081 00 000001 0039 c4"),
                   "an H.266 stream", "kovran reads only H.265");
    expect_refusal(bytes("00000001 00a1 28 00000001 0079 0a 000001 0081 00"), "an H.266 stream",
                   "kovran reads only H.265");
}

TEST(InspectForeignStreams, LengthsBeforeTheUnitsAreNamed) {
    const std::vector<std::string> units = {bytes("40010c"), bytes("420101"), bytes("4401c1"),
                                            bytes("2601af")};
    for (const std::size_t size : {1U, 2U, 3U, 4U}) {
        const std::string format = "length" + std::to_string(8 * size);
        const std::string stream = length_prefixed(units, size);
        expect_refusal(stream, "a stream of NAL units with lengths before them",
                       "read it with --format " + format + ", copy it with --from " + format);
        EXPECT_EQ(program({"nals", "-", "--format", format}).input(stream).run().status, 0);
    }
}

TEST(InspectForeignStreams, NothingAtAllIsNamed) {
    expect_refusal("", "empty", "check the program that wrote it");
}

TEST(InspectForeignStreams, TheCommandQuotesTheNameOfTheFile) {
    const temporary_folder folder;
    const std::string mp4 = bytes("00000014 66747970 69736f6d 00000200 69736f6d");
    const std::string plain = folder.write("a.mp4", mp4);
    EXPECT_NE(run({"info", plain}).err.find("ffmpeg -i " + plain + " -c copy"), std::string::npos);
    const std::string odd = folder.write("it's $HOME.mp4", mp4);
    EXPECT_NE(
        run({"info", odd}).err.find("ffmpeg -i '" + folder.path() + "/it'\\''s $HOME.mp4' -c copy"),
        std::string::npos);
}

// Whatever stands before the first start code, H.265 parameter sets make it H.265.
TEST(InspectForeignStreams, LeadingBytesDoNotHideAStream) {
    const std::string h265 = bytes("00000001 40010c 00000001 420101");
    for (const std::string& leading :
         {bytes("00000014 66747970 69736f6d 00000200 69736f6d"), bytes("1a45dfa3 a3 4286 81 01"),
          bytes("00000001 67640028 00000001 68eb"), bytes("000001 0079 0a 000001 0081 00"),
          std::string(70000, 'x')}) {
        const outcome result =
            program({"nals", "-", "--type", "VPS_NUT"}).input(leading + h265).run();
        EXPECT_LE(result.status, 1);
        EXPECT_NE(result.out.find("VPS_NUT"), std::string::npos);
    }
}

// Units that look like those of other standards, in an H.265 stream that somebody joined late.
TEST(InspectForeignStreams, SlicesWithoutParameterSetsAreRead) {
    for (const char* const stream :
         {"000001 0201d0 000001 0201d1", "000001 0001d0 000001 0001d1",
          "000001 0602d0 000001 0602d1", "000001 0079d0 000001 0079d1"}) {
        EXPECT_EQ(program({"nals", "-"}).input(bytes(stream)).run().status, 0) << stream;
    }
}

TEST(InspectForeignStreams, EveryTestStreamIsH265) {
    for (const std::string& name : stream_names()) {
        EXPECT_LE(run({"nals", stream_path(name), "--limit", "1"}).status, 1) << name;
    }
}

}  // namespace
}  // namespace kovran::test
