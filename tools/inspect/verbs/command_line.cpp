#include "verbs/command_line.h"

#include "process/failure.h"
#include "units/stream_format.h"
#include "units/type_lookup.h"

#include <bitset>
#include <charconv>
#include <cstdint>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include <fmt/format.h>
#include <CLI/CLI.hpp>

namespace kovran::inspect {
namespace {

constexpr char format_names_help[] = "annexb, length8, length16, length24 or length32";

std::string format_help(const char* what) {
    return fmt::format("{}: {}; default annexb", what, format_names_help);
}

void add_format(CLI::App& verb, const std::string& option, h2645_common_nalfmt& format,
                const char* what) {
    verb.add_option_function<std::string>(
            option, [&format](const std::string& name) { format = format_of(name); },
            format_help(what))
        ->type_name("FORMAT")
        ->check(CLI::IsMember(format_names()).description(""));
}

void add_rules(CLI::App& verb, rule_set& rules) {
    verb.add_option_function<std::string>(
            "--rules",
            [&rules](const std::string& name) {
                rules = name == name_of(rule_set::own) ? rule_set::own : rule_set::standard;
            },
            "Whose rules to parse by: standard, or own for those of the library; default standard")
        ->type_name("RULES")
        ->check(
            CLI::IsMember({name_of(rule_set::standard), name_of(rule_set::own)}).description(""));
}

void select_types(std::bitset<type_count>& types, const std::vector<std::string>& names) {
    types.reset();
    for (const std::string& name : names) {
        try {
            types.set(type_of(name));
        } catch (const failure& reason) {
            throw CLI::ValidationError("--type", reason.what());
        }
    }
}

std::optional<std::uint64_t> number_of(const std::string& text) {
    std::uint64_t number = 0;
    const char* const last = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), last, number);
    return error == std::errc{} && rest == last ? std::optional(number) : std::nullopt;
}

std::uint64_t number_of_units(const std::string& option, const std::string& text) {
    const std::optional<std::uint64_t> number = number_of(text);
    if (!number) {
        throw CLI::ValidationError(option, '\'' + text + "' is not a number of NAL units");
    }
    return *number;
}

unsigned int layer_of(const std::string& text) {
    const std::optional<std::uint64_t> number = number_of(text);
    if (!number || *number >= layer_count) {
        throw CLI::ValidationError("--layer", '\'' + text + "' is not a layer; use 0 to 63");
    }
    return static_cast<unsigned int>(*number);
}

void set_colour(nals_options& options, const std::string& when) {
    options.colour = when == "always"  ? colour_choice::always
                     : when == "never" ? colour_choice::never
                                       : colour_choice::on_terminals;
}

void add_stream(CLI::App& verb, std::string& file, h2645_common_nalfmt& format) {
    verb.add_option("FILE", file, "The stream, or - for standard input")->required()->type_name("");
    add_format(verb, "--format", format, "How the NAL units are framed");
}

void add_selection(CLI::App& verb, unit_selection& selection) {
    verb.add_option_function<std::vector<std::string>>(
            "--type",
            [&selection](const std::vector<std::string>& names) {
                select_types(selection.types, names);
            },
            "Show only units of these types: numbers or names, such as 32,SPS")
        ->type_name("TYPE")
        ->delimiter(',')
        ->allow_extra_args(false);
    verb.add_option_function<std::string>(
            "--layer", [&selection](const std::string& text) { selection.layer = layer_of(text); },
            "Show only units with this nuh_layer_id")
        ->type_name("N");
    verb.add_option_function<std::string>(
            "--nal",
            [&selection](const std::string& text) {
                selection.nal = number_of_units("--nal", text);
            },
            "Show only the unit with this index; kovran nals lists them")
        ->type_name("N");
    verb.add_option_function<std::string>(
            "--limit",
            [&selection](const std::string& text) {
                selection.limit = number_of_units("--limit", text);
            },
            "Stop after N units")
        ->type_name("N");
}

CLI::App& add_nals(CLI::App& program, nals_options& options) {
    CLI::App& verb = *program.add_subcommand("nals", "Show a line for each NAL unit of a stream");
    add_stream(verb, options.file, options.format);
    verb.add_flag("--json", options.json, "Show one JSON object per line");
    add_selection(verb, options.selection);
    verb.add_option_function<std::string>(
            "--color,--colour", [&options](const std::string& when) { set_colour(options, when); },
            "auto, always or never; default auto: on a terminal, unless NO_COLOR is set")
        ->type_name("WHEN")
        ->check(CLI::IsMember({"auto", "always", "never"}).description(""));
    return verb;
}

CLI::App& add_syntax(CLI::App& verb, syntax_options& options) {
    add_stream(verb, options.file, options.format);
    add_rules(verb, options.rules);
    add_selection(verb, options.selection);
    return verb;
}

CLI::App& add_dump(CLI::App& program, syntax_options& options) {
    CLI::App& verb =
        *program.add_subcommand("dump", "Show the syntax elements of each NAL unit as a tree");
    add_syntax(verb, options);
    verb.add_flag_callback(
        "--json", [&options] { options.style = syntax_style::json; },
        "Show one JSON object per unit and line");
    return verb;
}

CLI::App& add_trace(CLI::App& program, syntax_options& options) {
    options.style = syntax_style::trace;
    return add_syntax(*program.add_subcommand("trace",
                                              "Show a line for each syntax element: "
                                              "place, width, name, "
                                              "descriptor, value"),
                      options);
}

CLI::App& add_info(CLI::App& program, info_options& options) {
    CLI::App& verb = *program.add_subcommand("info", "Show a summary of a stream on one screen");
    add_stream(verb, options.file, options.format);
    add_rules(verb, options.rules);
    return verb;
}

CLI::App& add_differences(CLI::App& program, differences_options& options) {
    CLI::App& verb = *program.add_subcommand(
        "differences",
        "Show the NAL units that the library's own rules read differently from the standard's");
    add_stream(verb, options.file, options.format);
    verb.add_flag("--all", options.all, "Show the units as well, after the summary by rule");
    return verb;
}

CLI::App& add_copy(CLI::App& program, copy_options& options) {
    CLI::App& verb = *program.add_subcommand(
        "copy", "Copy the NAL units of a stream, in the same framing or another");
    verb.add_option("IN", options.in, "The stream to read, or - for standard input")
        ->required()
        ->type_name("");
    verb.add_option("OUT", options.out, "The stream to write, or - for standard output")
        ->required()
        ->type_name("");
    add_format(verb, "--from", options.from, "How the NAL units of IN are framed");
    add_format(verb, "--to", options.to, "How to frame them in OUT");
    return verb;
}

}  // namespace

command parse_command_line(int argc, const char* const* argv) {
    CLI::App program("Shows the high-level syntax of H.265 video streams.", "kovran");
    program.require_subcommand(0, 1);  // without one, CLI11 hides what was wrong
    program.set_version_flag("--version", "kovran " KOVRAN_VERSION);
    program.footer("Exit status: 0 success, 1 the stream has faults, 2 usage or I/O error.");
    info_options info;
    nals_options nals;
    syntax_options dump;
    syntax_options trace;
    copy_options copy;
    differences_options differences;
    const CLI::App& info_verb = add_info(program, info);
    const CLI::App& nals_verb = add_nals(program, nals);
    const CLI::App& dump_verb = add_dump(program, dump);
    const CLI::App& trace_verb = add_trace(program, trace);
    const CLI::App& differences_verb = add_differences(program, differences);
    const CLI::App& copy_verb = add_copy(program, copy);
    try {
        program.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        return text_to_show{program.help()};
    } catch (const CLI::CallForVersion& version) {
        return text_to_show{std::string(version.what()) + '\n'};
    } catch (const CLI::ParseError& error) {
        throw wrong_arguments(error.what());
    }
    if (info_verb.parsed()) {
        return info;
    }
    if (nals_verb.parsed()) {
        return nals;
    }
    if (dump_verb.parsed()) {
        return dump;
    }
    if (trace_verb.parsed()) {
        return trace;
    }
    if (differences_verb.parsed()) {
        return differences;
    }
    if (copy_verb.parsed()) {
        return copy;
    }
    throw wrong_arguments("a command is missing: info, nals, dump, trace, differences or copy");
}

}  // namespace kovran::inspect
