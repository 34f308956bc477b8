# One interface target carries the warnings, the sanitizers and the definitions every target of ours is built with.
add_library(flitmark_settings INTERFACE)

target_compile_options(
  flitmark_settings
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wconversion
            -Wsign-conversion
            -Wshadow
            -Wnon-virtual-dtor
            -Woverloaded-virtual
            -Wold-style-cast
            -Wcast-qual
            -Wimplicit-fallthrough)

target_compile_definitions(
  flitmark_settings INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_KEYWORDS
                              QT_NO_FOREACH QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_DISABLE_DEPRECATED_BEFORE=0x060400)

if(FLITMARK_SANITIZE)
  target_compile_options(flitmark_settings INTERFACE -fsanitize=${FLITMARK_SANITIZE} -fno-sanitize-recover=all
                                                     -fno-omit-frame-pointer
                                                     # The checks it adds make the compiler see paths that are not there.
                                                     -Wno-maybe-uninitialized)
  target_link_options(flitmark_settings INTERFACE -fsanitize=${FLITMARK_SANITIZE})
  target_compile_definitions(flitmark_settings INTERFACE FLITMARK_SANITIZED)
endif()

# Adds a static library of rooms. Each room's own CMakeLists.txt lists its files.
function(flitmark_library name)
  add_library(${name} STATIC)
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PRIVATE flitmark_settings)
endfunction()
