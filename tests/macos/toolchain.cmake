# Configures this project as a Mac would, for arm64, on Debian. scripts/check_macos uses it.

set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_PROCESSOR arm64)

set(toolchain "${CMAKE_CURRENT_LIST_DIR}/../../build/macos-toolchain") # Made by get_toolchain.
set(llvm /usr/lib/llvm-19/bin)
set(CMAKE_C_COMPILER "${llvm}/clang")
set(CMAKE_CXX_COMPILER "${llvm}/clang++")
set(CMAKE_OBJCXX_COMPILER "${llvm}/clang++")
set(CMAKE_AR "${llvm}/llvm-ar" CACHE FILEPATH "")
set(CMAKE_RANLIB "${llvm}/llvm-ranlib" CACHE FILEPATH "")
set(CMAKE_INSTALL_NAME_TOOL "${llvm}/llvm-install-name-tool" CACHE FILEPATH "")

set(c_headers
    "${toolchain}/darwin/include/aarch64-macos.13-none"
    "${toolchain}/darwin/include/any-macos.13-any"
    "${toolchain}/darwin/include/any-macos-any"
    "${CMAKE_CURRENT_LIST_DIR}/include"
    "${toolchain}/include")
list(TRANSFORM c_headers PREPEND "-isystem ")
list(JOIN c_headers " " c_headers)
set(cxx_headers "-isystem ${toolchain}/llvm/usr/lib/llvm-19/include/c++/v1")
set(target "--target=arm64-apple-macos -iframework ${CMAKE_CURRENT_LIST_DIR}/frameworks")
set(CMAKE_C_FLAGS_INIT "${target} -nostdlibinc ${c_headers}")
set(CMAKE_CXX_FLAGS_INIT "${target} -nostdlibinc -nostdinc++ ${cxx_headers} ${c_headers}")
set(CMAKE_OBJCXX_FLAGS_INIT "${CMAKE_CXX_FLAGS_INIT}")
set(CMAKE_EXE_LINKER_FLAGS_INIT "--ld-path=${CMAKE_CURRENT_LIST_DIR}/link -mlinker-version=609 -nostdlib")
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

# Runs those programs that a build has to run itself.
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/run_here")
set(TIDLO_QML_OPTIONS NO_CACHEGEN) # The code that Qt generates from QML files is large and proves nothing about this
                                   # project.
set(MACDEPLOYQT /usr/bin/true CACHE FILEPATH "")

# Qt and the other libraries are Debian's: their headers serve for both systems, and only their symbols are used.
set(CMAKE_FIND_ROOT_PATH /usr)
set(CMAKE_LIBRARY_ARCHITECTURE x86_64-linux-gnu)
set(CMAKE_PROJECT_Tidlo_INCLUDE "${CMAKE_CURRENT_LIST_DIR}/after_project.cmake")
