# Compiler settings shared by every target, as a usage requirement rather than as globals.

add_library(velko_options INTERFACE)

# Flat areas must stay exact whatever the machine: no fused multiply-add in the scaling code.
target_compile_options(
    velko_options
    INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror -ffp-contract=off)

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # Optimising, g++ 12 sees copies inside std::string and std::vector that overlap or overrun
    # where none do. The sanitizers and clang keep watch instead.
    target_compile_options(velko_options INTERFACE -Wno-restrict -Wno-array-bounds
                                                   -Wno-stringop-overflow -Wno-stringop-overread)
endif()

if(VELKO_SANITIZE)
    target_compile_options(
        velko_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                -fno-omit-frame-pointer)
    target_link_options(velko_options INTERFACE -fsanitize=address,undefined)
    if(VELKO_BUILD_FUZZERS)
        # Coverage feedback for the fuzzers; only they bring a libFuzzer main.
        target_compile_options(velko_options INTERFACE -fsanitize=fuzzer-no-link)
    endif()
endif()
