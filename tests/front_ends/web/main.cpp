#include <gtest/gtest.h>

extern "C" void hand_done(int failures);

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    hand_done(result);
    return result;
}
