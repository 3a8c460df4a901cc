// usage: model_test [FILE]
// Reads cases, one a line, from FILE or standard input, parses their inputs and compares every
// field of every record, where the reader stands, and what else the parsers were given, with what
// the case says. Exit status: 0 all alike, 1 differences, 2 no cases or cases that cannot be read.

#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_nal_sei.h>
#include <kovran/h265/h265_nal_sei_reader.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "record_json.h"

namespace kovran::model {
namespace {

unsigned int digit_value(char digit) {
    return static_cast<unsigned int>(digit <= '9' ? digit - '0' : digit - 'a' + 10);
}

// Bytes in a buffer that ends where they end: those in `head`, so many of value FF, those in `hex`.
class exact_bytes {
    std::size_t size_;
    std::unique_ptr<unsigned char[]> memory_;

public:
    explicit exact_bytes(const std::string& hex) : exact_bytes({}, 0, hex) {}

    exact_bytes(const std::string& head, std::size_t ff_bytes, const std::string& hex)
        : size_(head.size() / 2 + ff_bytes + hex.size() / 2), memory_(new unsigned char[size_]) {
        unsigned char* place =
            std::fill_n(decode(head, begin()), ff_bytes, static_cast<unsigned char>(0xFF));
        decode(hex, place);
    }

    unsigned char* begin() const { return memory_.get(); }
    unsigned char* end() const { return begin() + size_; }
    bool empty() const { return size_ == 0; }

private:
    static unsigned char* decode(const std::string& hex, unsigned char* place) {
        for (std::size_t i = 0; i < hex.size(); i += 2) {
            *place =
                static_cast<unsigned char>(digit_value(hex[i]) << 4 | digit_value(hex.at(i + 1)));
            ++place;
        }
        return place;
    }
};

using findings = std::vector<std::string>;

void expect_equal(const char* what, const json& is, const json& should, findings& differences) {
    if (is != should) {
        differences.push_back(std::string(what) + " is " + is.dump() + ", not " + should.dump());
    }
}

template <class Record>
json texts(const Record& /*record*/) {
    return nullptr;
}

json texts(const h265_vui_parameters& vui) {
    return json::array({vui.video_format_to_str()});
}

json texts(const h265_slice_segment_header& header) {
    return json::array({header.slice_type_to_str()});
}

json texts(const h265_nal_sei_pic_timing& timing) {
    return json::array({timing.pic_struct_to_str(), timing.source_scan_type_to_str()});
}

template <class Parse>
json outcome(Parse parse, const char* name) {
    try {
        return {{name, parse()}};
    } catch (const std::bad_alloc&) {
        return {{"throws", "std::bad_alloc"}};
    } catch (const std::exception& unexpected) {
        return {{"throws", unexpected.what()}};
    }
}

// Parses by the rules that the step names.
template <class Record, class... Arguments>
bool parse_by_rules(const json& step, Record& record, Arguments&&... arguments) {
    return step.value("rules", "own") == "standard"
               ? record.parse_standard(std::forward<Arguments>(arguments)...)
               : record.parse(std::forward<Arguments>(arguments)...);
}

h2645_common_bitreader reader_of(const exact_bytes& bytes, unsigned char start) {
    const bool even = start % 2 == 0;
    h2645_common_bitreader reader;
    if (!bytes.empty() || even) {
        reader = h2645_common_bitreader(bytes.begin(), bytes.end());
    }
    if (even) {
        reader.skip(start);
    } else {
        static_cast<void>(reader.get<unsigned int>(start));
    }
    return reader;
}

// Of a parse by the standard that fails the case says no more than that; but it started afresh, so
// that it shows nothing that was in the record before.
template <class Record, class Parse>
void compare_failed(const Record& record, Parse parse, h2645_common_bitreader reader,
                    const json& step, findings& differences) {
    expect_equal("valid", record.valid, false, differences);
    Record afresh;
    expect_equal("returns afresh", parse(afresh, reader, step), false, differences);
    compare(record, to_json(afresh), place{nullptr, "record", 0}, differences);
}

// Parses the inputs of all steps into one record: parse(record, reader, step). After each,
// others(differences, step) looks at what the parser was given besides.
template <class Record, class Parse, class Others>
findings run_steps(const json& test_case, Record& record, Parse parse, Others others) {
    findings all;
    const json& steps = test_case.at("steps");
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const json& step = steps[i];
        const exact_bytes bytes(step.at("hex").get<std::string>());
        const auto start = step.at("start").get<unsigned char>();
        h2645_common_bitreader reader = reader_of(bytes, start);

        findings differences;
        const json result = outcome([&] { return parse(record, reader, step); }, "returns");
        for (const char* name : {"returns", "throws"}) {
            expect_equal(name, result.value(name, json()), step.value(name, json()), differences);
        }
        if (step.contains("record")) {
            expect_equal("bit position", reader.bit_position(), step.at("position"), differences);
            expect_equal("next bits", reader.get<unsigned int>(16), step.at("next"), differences);
            compare(record, step.at("record"), place{nullptr, "record", 0}, differences);
            expect_equal("text", texts(record), step.value("text", json()), differences);
        } else {
            compare_failed(record, parse, reader_of(bytes, start), step, differences);
        }
        others(differences, step);
        for (const std::string& difference : differences) {
            all.push_back("step " + std::to_string(i) + ": " + difference);
        }
    }
    return all;
}

// The same for a parser that is given nothing that it could change.
template <class Record, class Parse>
findings run_steps(const json& test_case, Parse parse) {
    auto record = record_of<Record>(test_case.at("record"));
    return run_steps(test_case, record, parse, [](findings& /*differences*/, const json&) {});
}

// The same for a parser that is given a store.
template <class Record, class Other>
findings run_steps_with_store(const json& test_case, const char* name) {
    auto record = record_of<Record>(test_case.at("record"));
    const json& content = test_case.at(name);
    auto store = store_of<Other>(content);
    return run_steps(
        test_case, record,
        [&](Record& each, h2645_common_bitreader& reader, const json& step) {
            store.active_id = step.value("active_id", store.active_id);
            return parse_by_rules(step, each, reader, store);
        },
        [&](findings& differences, const json& step) {
            compare(store, step.value("active_id", store.active_id), content, name, differences);
        });
}

findings run_aud(const json& test_case) {
    return run_steps<h265_nal_aud>(test_case, [](auto& record, auto& reader, const json& step) {
        return parse_by_rules(step, record, reader);
    });
}

findings run_profile_tier_level(const json& test_case) {
    return run_steps<h265_profile_tier_level>(
        test_case, [](auto& record, auto& reader, const json& step) {
            return parse_by_rules(step, record, step.at("profilePresentFlag").get<bool>(),
                                  step.at("maxNumSubLayersMinus1").get<unsigned int>(), reader);
        });
}

findings run_profile_tier_level_layer(const json& test_case) {
    return run_steps<h265_profile_tier_level::layer_t>(
        test_case, [](auto& record, auto& reader, const json& step) {
            record.profile_present_flag = step.at("profile_present_flag").get<bool>();
            record.level_present_flag = step.at("level_present_flag").get<bool>();
            return record.parse(reader);
        });
}

findings run_hrd(const json& test_case) {
    return run_steps<h265_hrd_parameters>(
        test_case, [](auto& record, auto& reader, const json& step) {
            return parse_by_rules(step, record, step.at("commonInfPresentFlag").get<bool>(),
                                  step.at("maxNumSubLayersMinus1").get<unsigned int>(), reader);
        });
}

findings run_sub_layer_hrd(const json& test_case) {
    const auto hrd = record_of<h265_hrd_parameters>(test_case.at("hrd"));
    return run_steps<h265_nal_sub_layer_hrd_parameters>(
        test_case, [&](auto& record, auto& reader, const json& step) {
            return parse_by_rules(step, record, step.at("subLayerId").get<unsigned int>(),
                                  step.at("cpb_count").get<unsigned int>(), hrd, reader);
        });
}

findings run_vps(const json& test_case) {
    return run_steps<h265_nal_vps>(test_case, [](auto& record, auto& reader, const json& step) {
        return parse_by_rules(step, record, reader);
    });
}

findings run_scaling_list_data(const json& test_case) {
    return run_steps<h265_scaling_list_data>(test_case,
                                             [](auto& record, auto& reader, const json& step) {
                                                 return parse_by_rules(step, record, reader);
                                             });
}

// The record may be one of the sets that it is predicted from.
findings run_st_ref_pic_set(const json& test_case) {
    h265_nal_sps sps;
    sps.num_short_term_ref_pic_sets =
        test_case.at("num_short_term_ref_pic_sets").get<unsigned int>();
    std::vector<h265_st_ref_pic_set> own_sets;
    auto& sets = test_case.at("sets_are_of_sps").get<bool>() ? sps.st_ref_pic_set : own_sets;
    const json& content = test_case.at("sets");
    read(sets, content);
    const std::size_t own = test_case.value("own", sets.size());
    auto alone = record_of<h265_st_ref_pic_set>(test_case.at("record"));
    return run_steps(
        test_case, own < sets.size() ? sets[own] : alone,
        [&](h265_st_ref_pic_set& record, h2645_common_bitreader& reader, const json& step) {
            return parse_by_rules(step, record, reader, sps, step.at("idx").get<unsigned int>(),
                                  sets);
        },
        [&](findings& differences, const json&) {
            for (std::size_t i = 0; i < sets.size(); ++i) {
                if (i != own) {
                    compare(sets[i], content[i], place{nullptr, "set", i}, differences);
                }
            }
        });
}

findings run_vui(const json& test_case) {
    h265_nal_sps sps;
    auto vui = record_of<h265_vui_parameters>(test_case.at("record"));
    return run_steps(
        test_case, vui,
        [&](h265_vui_parameters& record, h2645_common_bitreader& reader, const json& step) {
            sps.sps_max_sub_layers_minus1 =
                step.at("sps_max_sub_layers_minus1").get<unsigned char>();
            return parse_by_rules(step, record, reader, sps);
        },
        [&](findings& differences, const json& step) {
            json expected;
            if (sps.sps_max_sub_layers_minus1 != 0) {
                expected["sps_max_sub_layers_minus1"] = step.at("sps_max_sub_layers_minus1");
            }
            compare(sps, expected, place{nullptr, "sps", 0}, differences);
        });
}

findings run_sps(const json& test_case) {
    return run_steps_with_store<h265_nal_sps, h265_nal_vps>(test_case, "vps_store");
}

findings run_pps(const json& test_case) {
    return run_steps_with_store<h265_nal_pps, h265_nal_sps>(test_case, "sps_store");
}

findings run_slice_segment_header(const json& test_case) {
    const json& pps_content = test_case.at("pps_store");
    const json& sps_content = test_case.at("sps_store");
    const json& vps_content = test_case.at("vps_store");
    auto pps_store = store_of<h265_nal_pps>(pps_content);
    auto sps_store = store_of<h265_nal_sps>(sps_content);
    auto vps_store = store_of<h265_nal_vps>(vps_content);
    auto header = record_of<h265_slice_segment_header>(test_case.at("record"));
    return run_steps(
        test_case, header,
        [&](h265_slice_segment_header& record, h2645_common_bitreader& reader, const json& step) {
            const auto nal_unit_type = step.at("nal_unit_type").get<unsigned int>();
            const bool read = parse_by_rules(step, record, reader, pps_store, sps_store, vps_store,
                                             static_cast<h265_nal_unit_type>(nal_unit_type));
            const auto independent = step.find("independent");
            if (read && record.dependent_slice_segment_flag && independent != step.end()) {
                record.take_over(record_of<h265_slice_segment_header>(*independent));
            }
            return read;
        },
        [&](findings& differences, const json&) {
            constexpr unsigned int none = 0xFFFFFFFF;
            compare(pps_store, none, pps_content, "pps_store", differences);
            compare(sps_store, none, sps_content, "sps_store", differences);
            compare(vps_store, none, vps_content, "vps_store", differences);
        });
}

findings run_ref_pic_lists_modification(const json& test_case) {
    return run_steps<h265_ref_pic_lists_modification>(
        test_case, [](auto& record, auto& reader, const json& step) {
            const auto header = record_of<h265_slice_segment_header>(step.at("header"));
            return parse_by_rules(step, record, reader, header);
        });
}

findings run_pic_timing(const json& test_case) {
    const auto sps = record_of<h265_nal_sps>(test_case.at("sps"));
    return run_steps<h265_nal_sei_pic_timing>(test_case,
                                              [&](auto& record, auto& reader, const json& step) {
                                                  return parse_by_rules(step, record, reader, sps);
                                              });
}

findings run_pic_timing_store(const json& test_case) {
    return run_steps_with_store<h265_nal_sei_pic_timing, h265_nal_sps>(test_case, "sps_store");
}

findings run_buffering_period(const json& test_case) {
    return run_steps_with_store<h265_nal_sei_buffering_period, h265_nal_sps>(test_case,
                                                                             "sps_store");
}

findings run_active_parameter_sets(const json& test_case) {
    return run_steps_with_store<h265_nal_sei_active_parameter_sets, h265_nal_vps>(test_case,
                                                                                  "vps_store");
}

// Pointers as offsets into the data.
json state_of(const h265_nal_sei_reader& reader, const unsigned char* data) {
    const auto offset = [&](const unsigned char* pointer) {
        return pointer == nullptr ? json() : json(pointer - data);
    };
    return {{"cursor", offset(reader.cursor)},
            {"end", offset(reader.end)},
            {"message_begin", offset(reader.message_begin)},
            {"payload_begin", offset(reader.payload_begin)},
            {"payload_end", offset(reader.payload_end)},
            {"payload_type", reader.payload_type},
            {"nal_unit_type", static_cast<unsigned int>(reader.nal_unit_type)},
            {"payload_size", reader.payload_size},
            {"message_valid", reader.message_valid},
            {"truncated", reader.truncated}};
}

findings run_sei_reader(const json& test_case) {
    findings differences;
    h265_nal_sei_reader reader;
    expect_equal("fresh reader", state_of(reader, nullptr), test_case.at("record"), differences);
    expect_equal("returns", reader.next_message(), test_case.at("returns"), differences);
    expect_equal("unset reader", state_of(reader, nullptr), test_case.at("after"), differences);
    for (const json& step : test_case.at("steps")) {
        const exact_bytes bytes(step.at("head").get<std::string>(),
                                step.at("ff_bytes").get<std::size_t>(),
                                step.at("hex").get<std::string>());
        const auto at = [&](const json& offset) {
            return offset.is_null() ? nullptr : bytes.begin() + offset.get<std::ptrdiff_t>();
        };
        unsigned char* begin = at(step.at("begin"));
        unsigned char* end = at(step.at("end"));
        const auto type =
            static_cast<h265_nal_unit_type>(step.at("nal_unit_type").get<unsigned int>());
        reader.set_ptr(begin, end, type);
        expect_equal("set reader", state_of(reader, bytes.begin()), step.at("record"), differences);
        expect_equal("new reader", state_of(h265_nal_sei_reader(begin, end, type), bytes.begin()),
                     step.at("record"), differences);
        for (const json& message : step.at("messages")) {
            expect_equal("returns", reader.next_message(), message.at("returns"), differences);
            expect_equal("reader", state_of(reader, bytes.begin()), message.at("record"),
                         differences);
            const auto payload_type = static_cast<h265_nal_sei_payload_type>(reader.payload_type);
            expect_equal(
                "text",
                json::array({h265_nal_sei_payload_type_to_str(payload_type, reader.nal_unit_type)}),
                message.at("text"), differences);
        }
    }
    return differences;
}

const std::map<std::string, findings (*)(const json&)> entries = {
    {"active_parameter_sets", run_active_parameter_sets},
    {"aud", run_aud},
    {"buffering_period", run_buffering_period},
    {"hrd", run_hrd},
    {"pic_timing", run_pic_timing},
    {"pic_timing_store", run_pic_timing_store},
    {"pps", run_pps},
    {"profile_tier_level", run_profile_tier_level},
    {"profile_tier_level_layer", run_profile_tier_level_layer},
    {"ref_pic_lists_modification", run_ref_pic_lists_modification},
    {"scaling_list_data", run_scaling_list_data},
    {"sei_reader", run_sei_reader},
    {"slice_segment_header", run_slice_segment_header},
    {"sps", run_sps},
    {"st_ref_pic_set", run_st_ref_pic_set},
    {"sub_layer_hrd", run_sub_layer_hrd},
    {"vps", run_vps},
    {"vui", run_vui},
    {"standard_active_parameter_sets", run_active_parameter_sets},
    {"standard_aud", run_aud},
    {"standard_buffering_period", run_buffering_period},
    {"standard_hrd", run_hrd},
    {"standard_pic_timing", run_pic_timing},
    {"standard_pic_timing_store", run_pic_timing_store},
    {"standard_pps", run_pps},
    {"standard_profile_tier_level", run_profile_tier_level},
    {"standard_ref_pic_lists_modification", run_ref_pic_lists_modification},
    {"standard_scaling_list_data", run_scaling_list_data},
    {"standard_slice_segment_header", run_slice_segment_header},
    {"standard_sps", run_sps},
    {"standard_st_ref_pic_set", run_st_ref_pic_set},
    {"standard_sub_layer_hrd", run_sub_layer_hrd},
    {"standard_vps", run_vps},
    {"standard_vui", run_vui},
};

// 0 or 1 as the exit status.
int run_cases(std::istream& input) {
    constexpr std::size_t shown = 5;
    std::size_t cases = 0;
    std::size_t failures = 0;
    std::size_t steps = 0;
    for (std::string line; std::getline(input, line);) {
        const json test_case = json::parse(line);
        const findings differences =
            entries.at(test_case.at("entry").get<std::string>())(test_case);
        ++cases;
        steps += test_case.at("steps").size();
        if (differences.empty()) {
            continue;
        }
        if (++failures > shown) {
            continue;
        }
        std::cout << "case " << test_case.at("id").get<std::string>() << "\n";
        for (std::size_t i = 0; i < std::min<std::size_t>(differences.size(), 10); ++i) {
            std::cout << "    " << differences[i] << "\n";
        }
        std::cout << line << "\n";
    }
    std::cout << cases << " cases of " << steps << " inputs, " << failures << " differ\n";
    if (cases == 0) {
        return 2;
    }
    return failures == 0 ? 0 : 1;
}

int run(int argc, char** argv) {
    if (argc > 2) {
        std::cerr << "usage: model_test [FILE]\n";
        return 2;
    }
    try {
        if (argc == 1) {
            return run_cases(std::cin);
        }
        std::ifstream file(argv[1]);
        if (!file) {
            std::cerr << "cannot open " << argv[1] << "\n";
            return 2;
        }
        return run_cases(file);
    } catch (const std::exception& broken) {
        std::cerr << "a case that cannot be read: " << broken.what() << "\n";
        return 2;
    }
}

}  // namespace
}  // namespace kovran::model

int main(int argc, char** argv) {
    return kovran::model::run(argc, argv);
}
