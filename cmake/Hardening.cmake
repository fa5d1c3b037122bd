# The flags with which Debian hardens programs, and no path of the build's folders in what is built: two folders make the
# same bytes. A set's SDK brings flags of its own, and sanitizers look for more than these do.
include(CheckPIESupported)
check_pie_supported()
add_compile_options(-fstack-protector-strong
    "$<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>"
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${PROJECT_BINARY_DIR}=build)
add_link_options(LINKER:-z,relro,-z,now)
string(APPEND CMAKE_SHARED_LINKER_FLAGS " -Wl,-z,defs") # a plug-in, a module, has the tool behind it instead
