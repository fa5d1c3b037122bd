The TV service on a bus: tools see its methods, nobody takes its name, and it says why it ends.

  $ dbus-run-session -- bash -c 'exec 2>&1; export TVS_BUS=session; { tvserviced; echo $?; } & for i in {1..100}; do busctl --user introspect com.kavrin.TVService /com/kavrin/TVService/SignalObject com.kavrin.IDebugPrintControl 2>/dev/null | grep -c " method *nav *av " >count && break; sleep 0.1; done; cat count; tvserviced; echo $?' 2>/dev/null | cat
  tvserviced: serving com.kavrin.TVService on session
  11
  tvserviced: session: com.kavrin.TVService has an owner already
  1
  tvserviced: the bus has ended
  1

Without a bus.

  $ tvserviced
  tvserviced: TVS_BUS is not set: give session, system or a D-Bus address
  [1]
  $ TVS_BUS=nowhere: tvserviced
  tvserviced: nowhere:: Connection refused
  [1]
