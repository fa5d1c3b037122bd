# Debian's hardening flags. File names are stored without the path of the build, so that builds in two folders are equal.
# Builds for a TV set use the flags of the SDK; builds with sanitizers do not need these.
include(CheckPIESupported)
check_pie_supported()
add_compile_options(-fstack-protector-strong
    "$<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>"
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${PROJECT_BINARY_DIR}=build)
add_link_options(LINKER:-z,relro,-z,now)
string(APPEND CMAKE_SHARED_LINKER_FLAGS " -Wl,-z,defs") # plug-ins (modules) have symbols that only the tool defines
