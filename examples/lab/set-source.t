The first screen gets HDMI1. A dollar begins what is typed into a shell; what that must say stands below it.
`cram3 set-source.t` plays this file, with DebugUtil on the PATH, and shows what has changed; `cram3 -i` takes it over.

  $ unset TVS_SCENARIO TVS_BUS
  $ export TVS_TRACE=trace

A file of words asks the tool, and the tool the TV service.

  $ DebugUtil <"$TESTDIR"/set-source.words >screen
  $ grep 'Source\[' screen
  *****Source[13]*****
  $ cat trace
  TVServiceAPI::CreateSourceControl(1, 1) = 0
  ISourceControl::SetSource(13, "") = 1
  TVServiceAPI::Destroy(ISourceControl)
  TVServiceAPI::CreateSourceControl(1, 1) = 0
  ISourceControl::GetSource() = 1 13
  TVServiceAPI::Destroy(ISourceControl)
  $ mv trace kept

A TV service that refuses: the console does not show it, but the trace differs from the kept one.

  $ printf '[result]\nISourceControl::SetSource=0\n' >refuses
  $ TVS_SCENARIO=refuses DebugUtil <"$TESTDIR"/set-source.words >screen
  $ diff -U 0 kept trace | grep '^[-+]I'
  -ISourceControl::SetSource(13, "") = 1
  +ISourceControl::SetSource(13, "") = 0
  -ISourceControl::GetSource() = 1 13
  +ISourceControl::GetSource() = 1 0

A TV service that throws: the option ends with a line on standard error, and its objects are released.

  $ printf '[throw]\nISourceControl::SetSource=no such input\n' >fails
  $ TVS_SCENARIO=fails DebugUtil <"$TESTDIR"/set-source.words >screen
  TVS Debug: no such input
  $ grep -A 1 ' ! ' trace
  ISourceControl::SetSource(13, "") ! no such input
  TVServiceAPI::Destroy(ISourceControl)
