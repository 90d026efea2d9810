#include <array>
#include <cstdio>
#include <filesystem>
#include <string>

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "scores/best_times.h"
#include "scores/best_times_file.h"
#include "scores/best_times_format.h"

namespace solvanta::benchmarks {
namespace {

/// A folder on the disk that the benchmarks are built on: temporary ones often lie in memory.
class Folder {
  public:
    Folder() { std::filesystem::create_directory(path_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() { std::filesystem::remove_all(path_); }

    std::string file(const std::string& name) const { return (path_ / name).string(); }
    std::string path() const { return path_.string(); }

  private:
    std::filesystem::path path_ = std::filesystem::absolute("benchmark_files");
};

GameState full_list() {
    GameState state;
    for (int place = 1; place <= best_places; ++place) {
        state.BestTime(place) = 600 + place;
        state.BestName(place) = "J\xF6rg S\xFC\xDF";
        state.BestDate(place) = "1. Jan 2026 12:33";
    }
    return state;
}

void sync_and_close(int file, benchmark::State& measured) {
    if (fsync(file) != 0 || close(file) != 0) measured.SkipWithError("not flushed");
}

/// The calls alone that put bytes durably in the place of old ones, which keep their permissions.
void BareWrite(benchmark::State& measured) {
    const Folder folder;
    const std::string path = folder.file("list");
    const std::string temporary = folder.file("list.tmp");
    const std::string bytes = format_best_times(full_list());
    for ([[maybe_unused]] auto round : measured) {
        std::array<char, 16> link{};
        struct stat old {};
        if (readlink(path.c_str(), link.data(), link.size()) > 0 || unlink(temporary.c_str()) == 0)
            measured.SkipWithError("not alone");
        const int file = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (write(file, bytes.data(), bytes.size()) < 0) measured.SkipWithError("not written");
        sync_and_close(file, measured);
        if (stat(path.c_str(), &old) == 0) chmod(temporary.c_str(), old.st_mode);
        std::rename(temporary.c_str(), path.c_str());
        sync_and_close(open(folder.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC), measured);
    }
}

void BestTimesWrite(benchmark::State& measured) {
    const Folder folder;
    BestTimesFile file(folder.file("highscore.scr"), system_files());
    GameState state = full_list();
    for ([[maybe_unused]] auto round : measured) {
        if (file.write(state)) measured.SkipWithError("not written");
    }
}

BENCHMARK(BareWrite)->UseRealTime();
BENCHMARK(BestTimesWrite)->UseRealTime();

}  // namespace
}  // namespace solvanta::benchmarks
