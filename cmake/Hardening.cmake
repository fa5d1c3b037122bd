# The flags with which Debian hardens programs, and no path of the build in what is built, so that two folders make the
# same bytes. An SDK has flags of its own, and sanitizers find more than these do.
include(CheckPIESupported)
check_pie_supported()
add_compile_options(-fstack-protector-strong
    "$<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>"
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${PROJECT_BINARY_DIR}=build)
add_link_options(LINKER:-z,relro,-z,now)
string(APPEND CMAKE_SHARED_LINKER_FLAGS " -Wl,-z,defs") # not for plug-ins, which are modules: the tool that loads them resolves their symbols
