// The main function of every test binary. After a run of all its tests it leaves the digests of the exports looked at
// in the folder ORV_DIGEST_DIR, as <binary>.txt.
#include "api.h"
#include "digest.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>

namespace {

const char* digest_folder()
{
    if (const char* folder = std::getenv("ORV_DIGEST_DIR")) return folder;
#ifdef ORV_DIGEST_DIR
    return ORV_DIGEST_DIR;
#else
    return nullptr;
#endif
}

bool all_tests_ran()
{
    const testing::UnitTest& tests = *testing::UnitTest::GetInstance();
    return tests.test_to_run_count() + tests.disabled_test_count() == tests.total_test_count();
}

bool write_digests(const std::filesystem::path& binary, const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    const auto path = folder / (binary.filename().string() + ".txt");
    std::ofstream file(path);
    file << orvtest::digest_lines();
    file.close();
    if (!file) std::cerr << "cannot write " << path << "\n";
    return !file.fail();
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    orvtest::install_fault_reporter();
    const int result = RUN_ALL_TESTS();
    const char* folder = digest_folder();
    if (folder && all_tests_ran() && !write_digests(argv[0], folder)) return 1;
    return result;
}
