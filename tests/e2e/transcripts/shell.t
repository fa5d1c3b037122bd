Very long words, zero bytes, and a byte-order mark before the first word.

  $ { printf '9%.0s' {1..100000}; printf ' \0\0\0 2\0\0\0 \377 '; printf 'x%.0s' {1..100000}; } | DebugUtil | grep -aoE 'cmd> |Option.*'
  cmd> 
  Option was not recognised 2147483647
  cmd> 
  cmd> 
  cmd> 
  cmd> 
  cmd> 
  $ { head -c 1048577 /dev/zero | tr '\0' x; echo ' 2'; } | DebugUtil | grep executing
  cmd> executing: TV Player
  $ for start in '' ' \n'; do printf "\357\273\277${start}2 \357\273\2773" | DebugUtil | grep executing; done
  cmd> executing: TV Player
  cmd> executing: TV Player

An input that cannot be read.

  $ DebugUtil </ 2>&1 >/dev/null
  console: cannot read the input: Is a directory
  $ DebugUtil 0>written 2>&1 >/dev/null
  console: cannot read the input: Bad file descriptor

A plug-in that is missing.

  $ echo 6 | DEBUGMENU_SYSROOT=/nowhere DebugUtil | grep -v '^[ 0-9=-]'
  /nowhere/usr/lib/libht-debugmenu.so: cannot open shared object file: No such file or directory (DEBUGMENU_SYSROOT moves it)
  DebugUtil
  DebugUtilMenu
  cmd> executing: TVS HT Debug
  DebugUtilMenu
  cmd> 

A plug-in without the entry function.

  $ mkdir -p root/usr/lib; cp $DEBUGMENU_SYSROOT/usr/lib/libvconf.so root/usr/lib/libht-debugmenu.so
  $ echo 6 | DEBUGMENU_SYSROOT=root DebugUtil 2>&1 >/dev/null
  root/usr/lib/libht-debugmenu.so: undefined symbol: ht_subdebugmenu

Another plug-in calls the platform, uses the console and throws an exception that is not a std::exception.

  $ echo 6 x 2 | DEBUGMENU_SYSROOT=$PLUG_IN_SYSROOT TVS_TRACE=trace DebugUtil | grep -E ':|cmd|  ='; cat trace
  cmd> executing: TVS HT Debug
  RestartVideoDecoder: 1
  cmd> ====================================
  cmd> executing: TV Player
  cmd> 
  TVServiceAPI::CreateAVControl(101, 3) = 0
  IAVControl::RestartVideoDecoder() = 1
  TVServiceAPI::Destroy(IAVControl)
  $ printf '[result]\nTVServiceAPI::CreateAVControl=-1\n' >scenario
  $ echo 6 | DEBUGMENU_SYSROOT=$PLUG_IN_SYSROOT TVS_SCENARIO=scenario DebugUtil | grep :
  TVS HT Debug: unknown exception
  cmd> executing: TVS HT Debug

The session continues when the reader of the output exits, also after a plug-in has changed the streams.

  $ { echo 6 x; sleep 0.2; echo 5 6 0 0 99 99; } | DEBUGMENU_SYSROOT=$PLUG_IN_SYSROOT TVS_TRACE=trace DebugUtil | grep -q Restart; echo ${PIPESTATUS[1]}; grep Source trace
  console: text was lost: Broken pipe
  0
  TVServiceAPI::CreateSourceControl(1, 0) = 0
  ISourceControl::SetSource(0, "") = 1
  TVServiceAPI::Destroy(ISourceControl)

Closed standard descriptors: no socket or file of the platform gets their numbers.

  $ DebugUtil <&- | grep -o cmd
  cmd
  $ echo 1 99 99 | DebugUtil >&-
  $ echo 1 99 99 | DebugUtil 2>&- | grep -oE 'executing.*|Failed.*'
  executing: TVS
  executing: Exit
  $ echo 6 99 | DEBUGMENU_SYSROOT=/nowhere TVS_TRACE=trace DebugUtil 2>&- | grep executing; cat trace
  cmd> executing: TVS HT Debug
  cmd> executing: Exit

A signal that was ignored at the start stays ignored.

  $ wait_for() { for i in {1..1000}; do grep -qs "$2" $1 && return; sleep 0.01; done; echo "$1 does not contain $2"; }
  $ mkfifo in
  $ (trap '' INT HUP; DebugUtil <in >out & exec 3>in; wait_for out cmd; kill -INT $!; kill -HUP $!; echo 99 >&3; wait $!)

Any other termination signal unregisters the simulated applications.

  $ TVS_TRACE=ended DebugUtil <in >out & exec 3>in; echo 6 17 1 >&3; wait_for out ret=1; kill $!; exec 3>&-; wait $! 2>/dev/null; echo $?; tail -n 6 ended
  143
  IPipelineUtility::RegisterForStateChange(0, "org.ostrel.sigtunepreptest1", 0) = 1
  IPipelineUtility::CheckPendingState(0) = 1 true
  IPipelineUtility::UnregisterFromStateChange(0, "org.ostrel.sigtunepreptest1") = 1
  IPipelineUtility::UnregisterFromStateChange(0, "org.ostrel.sigtunepreptest2") = 0
  TVServiceAPI::Destroy(IPipelineUtility)
  TVServiceAPI::DestroySignalSubscriber()

An output file that cannot grow for a while, a trace that cannot grow, and a non-blocking input, also for a plug-in.

  $ exec 3<>in
  $ (ulimit -f 4; exec DebugUtil <&3 >>full 2>err) & printf '2 %.0s' {1..13} >&3; wait_for err .; : >full; echo 5 15 99 99 >&3; wait $!; cat err; grep -c 'GetPIDSetStatus.0' full
  console: text was lost: File too large
  1
  $ for i in 1 2 3 4; do echo 5 7 0 7 1 15 99; done >words; (ulimit -f 1; TVS_TRACE=torn DebugUtil <words 2>&1 >/dev/null); tail -c 1 torn | wc -l; tail -n 1 torn
  trace torn: File too large
  1
  TVServiceAPI::CreatePipelineUtility(1, 0) = 0
  $ mix() { perl -MFcntl -e 'fcntl(STDIN, F_SETFL, O_NONBLOCK)' <&3; }
  $ mix; DebugUtil <&3 >waits & wait_for waits Exit; mix; echo 2 >&3; wait_for waits Player; sleep 0.1; mix; printf 9 >&3; sleep 0.1; echo 9 >&3; wait $!; tail -n 1 waits
  cmd> executing: Exit
  $ mix; echo 6 >&3; DEBUGMENU_SYSROOT=$PLUG_IN_SYSROOT DebugUtil <&3 >plugged & wait_for plugged Restart; echo 2 3 99 >&3; wait $!; grep -o 'executing: TV P.*' plugged
  executing: TV Plug in

Standard error that cannot grow for a while.

  $ printf '[throw]\nIPipelineUtility::GetPIDSetStatus#1=%01100d\nIPipelineUtility::GetPIDSetStatus#2=short\n' 0 >scenario
  $ (ulimit -f 1; TVS_SCENARIO=scenario exec DebugUtil <&3 >/dev/null 2>>err2) & echo 5 15 >&3; wait_for err2 000; : >err2; echo 5 15 99 >&3; wait $!; cat err2
  TVS Debug: short
