# The language level, the warnings and where built files go; the same for every target.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

set(CMAKE_CXX_FLAGS_DEV "-O1 -g1" CACHE STRING "Flags of the build type Dev" FORCE)
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -g1" CACHE STRING "Flags of the build type Release" FORCE)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

find_program(CCACHE ccache)
if(CCACHE)
    # Paths below the root are hashed relative to it, so that a clone in another folder finds the same results.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${CCACHE})
endif()

if(MSVC)
    add_compile_options(/W4 /WX /utf-8)
else()
    add_compile_options(-Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual -Wshadow -Werror)
endif()

if(DISCLOSURE_SANITIZE)
    add_compile_options(-fsanitize=${DISCLOSURE_SANITIZE} -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${DISCLOSURE_SANITIZE})
    if(DISCLOSURE_SANITIZE STREQUAL thread)
        add_compile_options(-Wno-tsan)  # Asio's fences, which stand beside mutexes that are seen
    else()
        add_compile_options(-fno-sanitize-recover=undefined,float-cast-overflow
                            -Wno-maybe-uninitialized)  # GCC takes the checks themselves for such uses
    endif()
endif()
