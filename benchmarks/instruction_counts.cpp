// usage: instruction_counts WHAT TIMES
// Parses one parameter set so many times, for an instruction counter to watch: the difference
// between two numbers of times is that of the parses alone.
#include "parameter_sets.h"

#include <cstdlib>
#include <map>
#include <string>

int main(int argc, char** argv) {
    using kovran::benchmarks::parameter_sets;
    static const std::map<std::string, bool (parameter_sets::*)()> parsers = {
        {"described_vps", &parameter_sets::described_vps},
        {"written_vps", &parameter_sets::written_vps},
        {"described_sps", &parameter_sets::described_sps},
        {"written_sps", &parameter_sets::written_sps},
        {"described_pps", &parameter_sets::described_pps},
        {"written_pps", &parameter_sets::written_pps},
    };
    if (argc != 3 || parsers.count(argv[1]) == 0) {
        return 2;
    }
    const auto parse = parsers.at(argv[1]);
    parameter_sets sets;
    bool parsed = true;
    for (int times = std::atoi(argv[2]); times > 0; --times) {
        parsed = (sets.*parse)() && parsed;
    }
    return parsed ? 0 : 1;
}
