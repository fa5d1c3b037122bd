A scenario or trace that cannot be used; nobody reads or writes the pipe.

  $ mkfifo pipe
  $ TVS_SCENARIO=$'/a\nb' DebugUtil
  scenario /a\nb: No such file or directory
  [2]
  $ TVS_SCENARIO=pipe DebugUtil
  scenario pipe: not a regular file
  [2]
  $ TVS_SCENARIO=/proc/sys/kernel/ostype DebugUtil
  scenario /proc/sys/kernel/ostype: neither a group, a key nor a comment: Linux
  [2]
  $ TVS_SCENARIO=/proc/self/environ DebugUtil
  scenario /proc/self/environ: holds a zero byte
  [2]
  $ TVS_SCENARIO=/proc/self/mem DebugUtil
  scenario /proc/self/mem: Input/output error
  [2]
  $ truncate -s 67108865 large; TVS_SCENARIO=large DebugUtil
  scenario large: larger than 64 MiB
  [2]
  $ TVS_TRACE=$'/a\nb/c' DebugUtil
  trace /a\nb/c: No such file or directory
  [2]
  $ TVS_TRACE=pipe DebugUtil
  trace pipe: No such device or address
  [2]

The trace is a file, standard error or nothing; it ends where it cannot be written.

  $ printf '[throw]\nIPipelineUtility::GetPIDSetStatus=two\\nlines\nTVServiceAPI::Destroy=late\n' >scenario
  $ echo 5 15 99 99 | TVS_SCENARIO=scenario TVS_TRACE=- DebugUtil >/dev/null
  TVServiceAPI::CreatePipelineUtility(1, 0) = 0
  IPipelineUtility::GetPIDSetStatus() ! two\nlines
  TVServiceAPI::Destroy(IPipelineUtility) ! late
  TVS Debug: two lines
  $ echo 5 15 99 99 | TVS_SCENARIO=scenario TVS_TRACE= DebugUtil >/dev/null
  TVS Debug: two lines
  $ echo 5 15 99 99 | TVS_SCENARIO=scenario TVS_TRACE=/dev/full DebugUtil >/dev/null
  trace /dev/full: No space left on device
  TVS Debug: two lines

A pipe that is read late gets all of it.

  $ exec 4<>pipe; for i in {1..1000}; do echo 5 15 99; done | TVS_TRACE=pipe DebugUtil >/dev/null & sleep 0.3; timeout 30 head -n 3000 <&4 | tail -n 1
  TVServiceAPI::Destroy(IPipelineUtility)

The tool exports what plug-ins call, the libraries what their headers declare.

  $ nm -DC --defined-only --format=posix $TOOL | sed 's/ [A-Z] .*//' | sort -u
  TCDebugMenuTPMS::Enter()
  TCDebugMenuTPMS::TCDebugMenuTPMS()
  $ nm -DC --defined-only --format=posix $DEBUGMENU_SYSROOT/usr/lib/libvconf.so | sed 's/ [A-Z] .*//' | sort -u
  vconf_get_int
  $ nm -DC --defined-only --format=posix $DEBUGMENU_SYSROOT/usr/lib/libdebugmenu-utility.so | sed 's/ [A-Z] .*//' | sort -u
  TCDebugMenuUtility::IsNumber(std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> > const&)
  TCDebugMenuUtility::OpenLibrary(char const*, char const*)
  TCDebugMenuUtility::thickLine
  TCDebugMenuUtility::thinLine
  $ nm -DC --defined-only --format=posix $DEBUGMENU_SYSROOT/usr/lib/libtvs-api.so | grep -oE '^TVServiceAPI::Destroy\(.*\)|^std::|host::|Connection::Channel' | sort -u
  TVServiceAPI::Destroy(ITvsSession*)
