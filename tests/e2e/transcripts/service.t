The TV service on a bus: bus tools list its methods, a second service cannot take its name, and it prints why it ends.

  $ dbus-run-session -- bash -c 'exec 2>&1; export TVS_BUS=session; { tvserviced; echo $?; } & for i in {1..100}; do busctl --user introspect com.kavrin.TVService /com/kavrin/TVService/SignalObject com.kavrin.IDebugPrintControl 2>/dev/null | grep -o "^.Start *method *nav *av" >seen && break; sleep 0.1; done; tr -s " " <seen; tvserviced; echo $?' 2>/dev/null | cat
  tvserviced: serving com.kavrin.TVService on session
  .Start method nav av
  tvserviced: session: com.kavrin.TVService has an owner already
  1
  tvserviced: the bus has ended
  1

It prints its help. Without a bus it exits with an error.

  $ tvserviced --help
  Usage: TVS_BUS=BUS tvserviced
  Serves the TV service's debug menu, com.kavrin.TVService, until the bus ends.
  BUS is session, system or a D-Bus address.
    --help     prints this help
    --version  prints the version

  $ tvserviced
  tvserviced: TVS_BUS is not set: give session, system or a D-Bus address
  [1]
  $ TVS_BUS=nowhere: tvserviced
  tvserviced: nowhere:: not session, system or a valid D-Bus address
  [1]

The remote menu is the same in the embedded service and on each kind of bus.

  $ wait_for() { for i in {1..1000}; do [ "$(grep -cs "$2" $1)" -ge ${3-1} ] && return; sleep 0.01; done 2>/dev/null; echo "$1 does not contain $2"; }
  $ bus=unix:path=$PWD/bus
  $ start_bus() { rm -f bus.out; dbus-daemon --nofork --nopidfile --print-address --address=$bus ${1---session} >bus.out 2>/dev/null & daemon=$!; disown; wait_for bus.out unix; }
  $ start_service() { rm -f service.out; TVS_BUS=$bus tvserviced >service.out 2>&1 & service=$!; disown; wait_for service.out serving; }
  $ start_bus; start_service
  $ walk() { printf '1\n3\n03\n99\n1\n' | TVS_TRACE=- DebugUtil 2>&1; }
  $ calls() { sed -E 's/.*IDebugPrintControl", "(\w+)", ([0-9]+)\) = /\1 \2 /' | paste -sd ,; }
  $ walk >embedded; grep Run embedded | calls
  Start 0 true,Execute 1 true,Execute 1 true,Execute 1 true,Stop 2 true,Start 0 true,Stop 2 true
  $ TVS_BUS=$bus walk | diff embedded -
  $ TVS_BUS=session DBUS_SESSION_BUS_ADDRESS=$bus walk | diff embedded -
  $ TVS_BUS=system DBUS_SYSTEM_BUS_ADDRESS=$bus walk | diff embedded -

The remote menu works again when the service or the bus has been restarted. At its first prompt the tool is connected to
the bus: the list then has the service, the tool and busctl. On a busy machine that may take several starts.

  $ end() { kill -9 $1; while kill -0 $1 2>/dev/null; do sleep 0.01; done; }
  $ lose() { echo 1 >&3; wait_for out tvs $2; end $1; echo 3 1 >&3; wait_for out 'Failed to start TVS debug print control' $2; }
  $ mkfifo in; exec 3<>in
  $ wait_at_prompt() { rm -f out; TVS_BUS=$bus TVS_TRACE=trace DebugUtil <&3 >out 2>err & tool=$!; wait_for out cmd; }
  $ for i in {1..20}; do wait_at_prompt; busctl --address=$bus list --no-legend | grep -c ^: >seen; grep -q 3 seen && break; echo 99 >&3; wait $tool; done; cat seen
  3
  $ lose $service 1; start_service; lose $daemon 2; start_bus; start_service; echo 1 99 99 >&3; wait $tool; end $service; end $daemon; rm -f bus
  $ calls <trace
  Start 0 true,Execute 1 false,Stop 2 false,Start 0 false,Start 0 true,Execute 1 false,Stop 2 false,Start 0 false,Start 0 true,Execute 1 true,Stop 2 true
  $ sed "s,$bus,(bus)," err
  TV service on (bus): the call failed: The name com.kavrin.TVService was not provided by any .service files
  TV service on (bus): the call failed: The name com.kavrin.TVService was not provided by any .service files
  TV service on (bus): the call failed: The name com.kavrin.TVService was not provided by any .service files
  TV service on (bus): cannot open the bus: Connection refused
  TV service on (bus): cannot open the bus: Connection refused
  TV service on (bus): cannot open the bus: Connection refused

Buses that do not exist, a session without a bus, and a bus that rejects all calls.

  $ echo 1 99 | TVS_BUS=unix:path=/nowhere DebugUtil 2>&1 >/dev/null
  TV service on unix:path=/nowhere: cannot open the bus: No such file or directory
  $ echo 1 99 | DBUS_SYSTEM_BUS_ADDRESS=unix:path=/nowhere TVS_BUS=system DebugUtil 2>&1 >/dev/null
  TV service on system: cannot open the system bus: No such file or directory
  $ echo 1 99 | env -u DBUS_SESSION_BUS_ADDRESS -u XDG_RUNTIME_DIR TVS_BUS=session DebugUtil 2>&1 >/dev/null
  TV service on session: cannot open the session bus: No medium found
  $ echo "<busconfig><listen>$bus</listen><policy context='default'><allow own='*'/><allow send_destination='org.freedesktop.DBus'/><allow receive_sender='org.freedesktop.DBus'/></policy></busconfig>" >conf
  $ start_bus --config-file=conf; start_service; echo 1 99 | TVS_BUS=$bus DebugUtil 2>&1 >/dev/null | grep -o ': Rejected send message'; end $service; end $daemon
  : Rejected send message

A service continues when its standard output is closed by the reader.

  $ start_bus; { sleep 0.1; TVS_BUS=$bus exec tvserviced 2>&-; } | : & disown
  $ for i in {1..1000}; do busctl --address=$bus list | grep -o com.kavrin.TVService && break; sleep 0.01; done
  com.kavrin.TVService
  $ sleep 0.1; busctl --address=$bus list | grep -o com.kavrin.TVService; end $daemon
  com.kavrin.TVService
