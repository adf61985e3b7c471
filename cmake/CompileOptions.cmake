# The options that every target of the project is built with.

function(brindlemoor_options target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
    # GCC 12 reports an overlap inside std::string for a literal put in front of a text, where there
    # is none (its bug 105651, mended in 13).
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        target_compile_options(${target} PRIVATE -Wno-restrict)
    endif()
    if(BRINDLEMOOR_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    if(BRINDLEMOOR_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=address,undefined)
    endif()
    # Bounds checks inside the standard library, wherever speed is not the point.
    target_compile_definitions(${target} PRIVATE
        $<$<OR:$<CONFIG:Debug>,$<BOOL:${BRINDLEMOOR_SANITIZE}>>:_GLIBCXX_ASSERTIONS>)
endfunction()

# Gives a target its sources. A folder that is still empty gives the target one empty source, since
# a target without any cannot be built.
function(brindlemoor_sources target)
    if(ARGN)
        target_sources(${target} PRIVATE ${ARGN})
    else()
        set(empty "${CMAKE_CURRENT_BINARY_DIR}/${target}_empty.cpp")
        file(WRITE "${empty}.new" "// No sources yet.\n")
        file(COPY_FILE "${empty}.new" "${empty}" ONLY_IF_DIFFERENT)
        target_sources(${target} PRIVATE "${empty}")
    endif()
endfunction()
