#include "sys/shared_library.h"

#include <gtest/gtest.h>

namespace {

struct Library : LSharedLibrary {
    Library(const char* name, const char* function) : LSharedLibrary(name), atoi(Find(function)) {}
    int (*atoi)(const char*);
};

TEST(SharedLibrary, IsThereWithAllItsFunctionsOrNot) {
    const Library there("libc.so.6", "atoi"), incomplete("libc.so.6", "no_such"),
        missing("libno.so.1", "atoi");
    EXPECT_EQ(there.GetFailure().GetReason(), "");
    EXPECT_EQ(there.atoi("42"), 42);
    EXPECT_FALSE(incomplete.IsThere());
    EXPECT_EQ(missing.GetFailure().GetReason(), "needs libno, which is not installed");
}

} // namespace
