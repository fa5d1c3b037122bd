Switch the main screen to HDMI1. A line with a dollar is a shell command; the expected output follows it.
`cram3 set-source.t`, with DebugUtil on the PATH, runs this file and shows a diff; `cram3 -i` updates the file.

  $ unset TVS_SCENARIO TVS_BUS
  $ export TVS_TRACE=trace

The tool reads its words from a file, and calls the TV service.

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

SetSource fails with a result: the console does not show it, but a diff with the kept trace does.

  $ printf '[result]\nISourceControl::SetSource=0\n' >fails
  $ TVS_SCENARIO=fails DebugUtil <"$TESTDIR"/set-source.words >screen
  $ diff -U 0 kept trace | grep '^[-+]I'
  -ISourceControl::SetSource(13, "") = 1
  +ISourceControl::SetSource(13, "") = 0
  -ISourceControl::GetSource() = 1 13
  +ISourceControl::GetSource() = 1 0

SetSource throws an exception: the option ends with an error on standard error, and the object is released.

  $ printf '[throw]\nISourceControl::SetSource=no such input\n' >throws
  $ TVS_SCENARIO=throws DebugUtil <"$TESTDIR"/set-source.words >screen
  TVS Debug: no such input
  $ grep -A 1 ' ! ' trace
  ISourceControl::SetSource(13, "") ! no such input
  TVServiceAPI::Destroy(ISourceControl)
