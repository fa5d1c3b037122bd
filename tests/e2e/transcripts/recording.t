Recorded sessions: debugutil-script records a shell command in place of the tool, and the tool at a terminal.

  $ wait_for() { for i in {1..1000}; do grep -qs "$2" $1 && return; sleep 0.01; done; echo "$1 does not contain $2"; }
  $ prompt='printf "cmd> "; read w && echo "got $w";'
  $ signal='\tSIGNAL_SI_STARTED -> profile:702\n'

A recording has the printed lines. It passes when it is played, also where a line looks like a pattern, a comment or a prompt.

  $ echo >tool 'printf "FindService failed"; sleep 0.1; printf "\n#a\n\n*? (re)\nb\r\r\ncmd> "; read w; printf "major> "; sleep 0.1; echo x; read w; printf "got $w (glob)\n"; exit $EXIT'
  $ { echo 5; sleep 0.4; echo 6 7; } | debugutil-script --record r sh tool | tr '\r' ^; tr '\r' ^ <r; debugutil-script r sh tool; echo $?
  FindService failed
  #a
  
  *? (re)
  b^^
  cmd> major> x
  got 6 (glob)
  FindService failed
  ?a (glob)
  \*\? (re) (glob)
  b^ (glob)
  cmd> 5
  major> x (glob)
  major> 6
  got 6 (glob) (glob)
  0
  $ echo a/b | debugutil-script --record r sh -c "$prompt echo error >&2" >&- 2>&-; cat r # the file does not become standard error
  cmd> a/b
  got a/b
  $ echo 5 6 | EXIT=7 debugutil-script --record r sh tool | tail -n 1; echo ${PIPESTATUS[1]}
  r: the command ended with status 7
  got 6 (glob)
  1
  $ echo >tool 'head -c 3000000 /dev/zero | tr "\0" a; echo; printf "cmd> "; read w'
  $ echo 5 | debugutil-script --record r sh tool >/dev/null; wc -l <r; debugutil-script r sh tool
  4
  $ for word in '\377 5' '5\0005'; do printf "$word" | debugutil-script --record r sh -c "$prompt exit 0" >/dev/null; done
  r: a word is not UTF-8 text
  r: a word is not UTF-8 text
  [1]
  $ printf '1%04095d 5' 0 | debugutil-script --record r sh -c "$prompt exit 0" >/dev/null
  r: the word 10000000000000000000... is too long
  [1]

Signals that arrive with the lines of a step are recorded as comments. The script waits for later ones.

  $ echo >tool "printf 'cmd> '; read w; printf 'done\n${signal}cmd> ${signal}'; sleep 0.5; printf '$signal'; read w"
  $ { sleep 0.3; echo 5; sleep 1; echo 99; } | debugutil-script --record r sh tool >/dev/null; cat r; debugutil-script r sh tool
  cmd> 5
  done
  # 	SIGNAL_SI_STARTED -> profile:702 (esc)
  # 	SIGNAL_SI_STARTED -> profile:702 (esc)
  	SIGNAL_SI_STARTED -> profile:702 (esc)
  cmd> 99

  $ echo >tool "printf 'cmd> '; read w; sleep 0.4; printf '${signal}cmd> '; read w"
  $ echo 5 99 | debugutil-script --record r sh tool >/dev/null; cat r
  cmd> 5
  # 	SIGNAL_SI_STARTED -> profile:702 (esc)
  cmd> 99

A recording ends with the input, or with an error when no prompt is printed for a word.

  $ echo 5 | debugutil-script --record r DebugUtil >/dev/null; tail -n 2 r; debugutil-script r; echo $?
   99 : Exit
  ====================================
  0
  $ { printf 5; sleep 0.2; printf '\n9'; sleep 0.2; printf 9; } | debugutil-script --record r DebugUtil >/dev/null; grep '> .' r
  cmd> 5
  cmd> 99
  $ echo 5 6 | debugutil-script -t 0.3 --record r cat; echo $?; cat r
  r: no prompt for the word 5
  1
  $ for file in none/r /dev/full; do echo 99 | debugutil-script --record $file DebugUtil >/dev/null; echo $?; done
  debugutil-script: cannot write none/r: No such file or directory
  2
  /dev/full: cannot write all of it
  1

At a terminal: editing, Ctrl-C, Ctrl-D. (`script` makes the terminal.)

  $ mkfifo keys; exec 4<>keys
  $ terminal() { : >screen; TVS_TRACE=trace env --default-signal=INT script -qefc "debugutil-script --record r DebugUtil" /dev/null <keys >screen & }
  $ terminal; wait_for screen 'cmd>'; printf '5 7 9\1771\r' >&4; wait_for screen 'Source.0'; sleep 0.1; printf '\003' >&4; wait $!; echo $?; cat trace
  130
  TVServiceAPI::CreateSourceControl(1, 1) = 0
  ISourceControl::GetSource() = 1 0
  TVServiceAPI::Destroy(ISourceControl)
  $ tail -n 2 r; debugutil-script r; echo $?
   99 : Exit
  ====================================
  0
  $ terminal; wait_for screen 'cmd>'; printf '5\r' >&4; wait_for screen 'Get Source'; sleep 0.1; printf '\004' >&4; wait $!; echo $?; debugutil-script r; echo $?
  0
  0
