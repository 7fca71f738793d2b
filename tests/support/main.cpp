// The suite's entry: keeps the user's own settings out of the tests.

#include "support/temp_dir.h"

#include <gmock/gmock.h>

int main(int argc, char** argv) {
    const TempDir home;
    setenv("XDG_CONFIG_HOME", (home / "config").c_str(), 1);
    setenv("XDG_DATA_HOME", (home / "data").c_str(), 1);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
