A scenario or trace that cannot be used is an error. A pipe without a reader or writer does not block the tool. The trace does not overwrite the scenario.

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
  scenario /proc/self/environ: contains a zero byte
  [2]
  $ TVS_SCENARIO=/proc/self/mem DebugUtil
  scenario /proc/self/mem: Error reading file \xe2\x80\x9c/proc/self/mem\xe2\x80\x9d: Input/output error (esc)
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
  $ echo '[tv]' >same; ln -s same link; TVS_SCENARIO=same TVS_TRACE=link DebugUtil
  trace link: it would overwrite the scenario same
  [2]
  $ cat same
  [tv]

The trace goes to a file, to standard error or nowhere. Tracing ends when the file cannot be written.

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

Values other than the defaults. SetTvMode changes the result of GetTvMode. A window id of -1 is passed on; without the key it is 0.

  $ printf '[tv]\nantenna_mode=1\nservice_mode=1\nzoom_available=false\n[vconf]\ndb/tv-viewer/window_id=-1\n[service]\n1=2\n3=2\n12=9\n13=5\n23=1\n25=0\n' >scenario
  $ calls() { TVS_SCENARIO=scenario TVS_TRACE=- DebugUtil 2>&1 >/dev/null | grep -E 'TvMode|vconf|Video|Zoom.*\(\)'; }
  $ echo 6 13 1 5 1 5 99 5 7 7 99 19 1 | calls
  IServiceNavigation::GetTvMode() = 1 {1, 1}
  IServiceNavigation::SetTvMode({0, 1}, 9, "") = 1
  IServiceNavigation::GetTvMode() = 1 {0, 1}
  IServiceNavigation::SetTvMode({0, 1}, 9, "") = 1
  vconf_get_int("db/tv-viewer/window_id") = 0 -1
  TVServiceAPI::CreateVideoControl(1, 0) = 0
  IVideoControl::SetWindowId(-1) = 1
  TVServiceAPI::Destroy(IVideoControl)
  IZoomControl::IsZoomAvailable() = 1 false
  $ sed -i 's/window_id/other/' scenario; echo 6 7 7 | calls
  vconf_get_int("db/tv-viewer/window_id") = -1
  TVServiceAPI::CreateVideoControl(1, 0) = 0
  IVideoControl::SetWindowId(0) = 1
  TVServiceAPI::Destroy(IVideoControl)

A trace to a pipe is complete, even if the pipe is read late.

  $ exec 4<>pipe; for i in {1..1000}; do echo 5 15 99; done | TVS_TRACE=pipe DebugUtil >/dev/null & sleep 0.3; timeout 30 head -n 3000 <&4 | tail -n 1
  TVServiceAPI::Destroy(IPipelineUtility)

The tool exports only the functions that plug-ins call. Each library exports only the functions that its headers declare.

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
