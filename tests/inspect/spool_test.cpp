#include "output/spool.h"

#include "process/failure.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstddef>
#include <string>

#include <sys/resource.h>

#include "temporary_folder.h"

namespace kovran::inspect {
namespace {

constexpr std::size_t in_blocks = std::size_t{1} << 16;

// Files of this process grow no larger while it lives.
class file_size_limit {
public:
    explicit file_size_limit(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~file_size_limit() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, signal_);
    }
    file_size_limit(const file_size_limit&) = delete;
    file_size_limit& operator=(const file_size_limit&) = delete;

private:
    void (*signal_)(int);
    rlimit before_{};
};

// Most of it from the temporary file, the rest from memory.
TEST(Spool, GivesBackWhatWasAdded) {
    spool text;
    std::string all;
    for (int i = 0; i < 20000; ++i) {
        const std::string line = std::to_string(i) + '\n';
        text.add(line);
        all += line;
    }
    const test::temporary_folder folder;
    const std::string path = folder.file("all");
    output lines(file_descriptor::create(path, path));
    text.write_to(lines);
    lines.finish();
    EXPECT_GT(all.size(), in_blocks);
    EXPECT_EQ(test::read_file(path), all);
}

// The C library writes whole blocks at once and holds the last byte back until it is flushed.
TEST(Spool, TellsOfALastByteThatCannotBeWritten) {
    bool told = false;
    {
        const file_size_limit limit(in_blocks);
        spool text;
        text.add(std::string(in_blocks + 1, 'a'));
        output nowhere(file_descriptor::open_existing_to_write("/dev/null").value());
        try {
            text.write_to(nowhere);
        } catch (const failure&) {
            told = true;
        }
    }
    EXPECT_TRUE(told);
}

}  // namespace
}  // namespace kovran::inspect
