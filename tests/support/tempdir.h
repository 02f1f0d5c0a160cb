// A fresh directory for one test, removed with everything in it afterwards.
#pragma once

#include <filesystem>
#include <random>
#include <string>

namespace orrery::test {

class TempDir {
public:
    TempDir() {
        std::random_device entropy;
        m_path = std::filesystem::temp_directory_path() /
                 ("orrery-test-" + std::to_string(entropy()) + std::to_string(entropy()));
        std::filesystem::create_directories(m_path);
    }
    ~TempDir() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TempDir(const TempDir &) = delete;
    TempDir &operator=(const TempDir &) = delete;

    const std::filesystem::path &path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

} // namespace orrery::test
