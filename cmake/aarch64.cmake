# Builds the core for another processor: cmake --toolchain cmake/aarch64.cmake -DSONVIRE_CORE_ONLY=ON. Its libraries are
# headers alone, so this machine's serve.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
