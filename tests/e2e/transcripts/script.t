Checked scripts: debugutil-script plays a script with a shell command in place of the tool.

  $ plays() { printf "$1" >s; debugutil-script -t ${T:-10} s sh -c "$2"; echo $?; }
  $ wait_for() { for i in {1..1000}; do grep -qs "$2" $1 && return; sleep 0.01; done; echo "$1 does not contain $2"; }
  $ prompt='printf "cmd> "; read w && echo "got $w";'

Without -t, a line is awaited for 10 s. These two run until the end of this file.

  $ echo a >ten; for late in 9 11; do debugutil-script ten sh -c "sleep $late; echo a" 2>&1 >/dev/null | head -n 1 >after.$late & done

Comments, empty lines, CR LF and a byte-order mark are skipped. Blanks are not skipped. The last line needs no line end.

  $ plays '\357\273\277# c\r\n\r\ncmd> 5\r\ngot 5' "$prompt"
  0
  $ for line in 'a ' ' a' A ' ' 'cmd>' 'cmd> '; do T=0.5 plays "$line\n" 'echo a; printf "cmd> "; read w' 2>&1 | tail -n 1; done | uniq -c
        6 1
  $ plays ' a \nb\n' 'echo; echo " a "; printf "x\n\nb"'
  0
  $ plays '\357\277\275a\n' 'printf "\377a\r\n"'
  0

A pattern matches a whole line. It also matches a line that is equal to it.

  $ matches() { printf '%s\n' "$1" >s; printf '%s\n' "$2" >printed; debugutil-script s cat printed 2>/dev/null; echo "$? $1"; }
  $ for line in 'a.*c (re)' 'ab+ (re)' '(x|abc) (re)' 'x|abcd (re)' 'a*c (glob)' 'ab? (glob)' '*b* (glob)' 'a\*c (glob)' '? (glob)' 'abc* (glob)' 'b* (glob)' '(?x)abc (re)'; do matches "$line" abc; done
  0 a.*c (re)
  1 ab+ (re)
  0 (x|abc) (re)
  1 x|abcd (re)
  0 a*c (glob)
  0 ab? (glob)
  0 *b* (glob)
  1 a\*c (glob)
  1 ? (glob)
  0 abc* (glob)
  1 b* (glob)
  0 (?x)abc (re)
  $ matches 'a+ (re)' 'a+ (re)'; matches '? (glob)' 'é'; matches 'é. (re)' 'éé'; matches '\?\*\\\d* (glob)' '?*\\dx'
  0 a+ (re)
  0 ? (glob)
  0 é. (re)
  0 \?\*\\\d* (glob)
  $ matches '(a|aa)+c|a* (re)' aaaaaaaaaaaaaaaaaaaaaaaaaaaaa # too many steps
  1 (a|aa)+c|a* (re)

The lines are matched in order. Other printed lines are skipped, and a printed line matches only once.

  $ plays 'a\nc\n' 'echo a; echo b; echo c'
  0
  $ for script in 'c\na\n' 'a\na\n' 'a\nd\n'; do plays "$script" 'echo a; echo b; echo c'; done 2>&1 | grep expected
  s:2: expected a
  s:2: expected a
  s:2: expected d

Each line has its own time.

  $ T=1 plays 'a\nb\n' 'for w in a b; do sleep 0.7; echo $w; done'
  0

A word is typed at its own prompt only: not at another one, not at a part of the prompt, and only one per prompt.

  $ plays 'Input ? >13\ngot 13\n' 'printf "Input ? "; sleep 0.2; printf ">"; read w; echo "got $w"'
  0
  $ plays 'name:x\ngot x\n' 'printf na; sleep 0.1; printf "me:"; read w; echo "got $w"'
  0
  $ plays 'cmd> 5\ncmd> 6\ngot 6\n' "$prompt $prompt"
  0
  $ plays 'port8\nSize ? >1\ngot >1\n' 'printf port; read w; printf "Size ? "; read w; echo got $w'
  0
  $ T=1.5 plays 'cmd> 5 6\n' "$prompt"
  s:1: expected cmd> 5 6
  s:1: the tool is at the prompt cmd> 
  s:1: printed since the last word: nothing
  1
  $ T=0.5 plays 'cmd> 5\nInput ? >1\nx\n' "echo menu; $prompt echo refused; $prompt echo end >&2"
  s:2: expected Input ? >1
  s:2: the tool is at the prompt cmd> 
  s:2: printed since the last word:
    got 5
    refused
  end
  1
  $ word=$(printf %04095d 0); plays "cmd> $word\ngot $word\n" "$prompt"
  0

The script waits for a late signal while the prompt stays. A signal in the middle of a line does not split the line.

  $ plays 'cmd> 1\nlate\ncmd> 99\ngot 99\n' "$prompt printf 'cmd> '; sleep 0.2; echo late; read w; echo got \$w"
  0
  $ plays 'cmd> late line\ncmd> 99\ngot 99\n' "printf 'cmd> '; sleep 0.2; echo late line; read w; echo got \$w"
  0
  $ signal='\tSIGNAL_SI_STARTED -> profile:702\n'
  $ plays "${signal}${signal}cmd> 99\ngot 99\n" "printf 'cmd> $signal$signal'; read w; echo got \$w"
  0
  $ plays 'FindService failed for major=5\ncmd> 99\n' "printf 'FindService failed${signal}'; sleep 0.1; printf ' for major=5\ncmd> '; read w"
  0
  $ plays 'failed for major=5\ncmd> 99\ngot 99\n' "printf failed; sleep 0.1; echo ' for major=5'; $prompt"
  0

A command that ends early or with an error, closes its output, hangs, ignores SIGTERM, prints without end, leaves a child process, or closes its input.

  $ plays 'a\nb\n' 'echo a; exit 3'
  s:2: expected b
  s:2: the command ended with status 3
  s:2: printed since the last word:
    a
  1
  $ plays 'a\n' 'echo a; exit 3'
  s: the command ended with status 3
  1
  $ plays 'a\n' 'echo a; kill -9 $$'
  s: the command ended by signal 9
  1
  $ T=0.5 plays 'cmd> 5\n# c\n\r\nb\n' 'printf "cmd> "; read w; read w'
  s:4: expected b
  s:4: the tool is at no prompt
  s:4: printed since the last word: nothing
  1
  $ T=0.5 plays 'a\n' 'exec >&-; read w'
  s:1: expected a
  s:1: the tool is at no prompt
  s:1: printed since the last word: nothing
  1
  $ T=0.5 plays 'a\n' 'echo a; exec sleep 60'
  s: the command did not end after its input and was killed
  1
  $ T=0.5 plays 'a\n' 'trap "" TERM; echo a; while :; do sleep 0.1; done'
  s: the command did not end after its input and was killed
  1
  $ T=0.5 plays 'a\n' 'exec yes' 2>&1 | sed 's/([0-9]*/(many/' | sort | uniq -c
        1   (many lines before these)
      200   y
        1 1
        1 s:1: expected a
        1 s:1: printed since the last word:
        1 s:1: the tool is at no prompt
  $ T=0.5 plays 'cmd> 5\nx\n' 'seq 300; printf "cmd> "; read w; echo b' 2>&1 | tail -n 3
  s:2: printed since the last word:
    b
  1
  $ T=86400 plays '# only a comment\n' 'read w; echo ended'
  0
  $ T=3 plays 'a\nb\n' 'echo a; sleep 9 2>/dev/null & exit' 2>&1 | grep ended
  s:2: the command ended with status 0
  $ plays 'cmd> 5\na\n' 'printf "cmd> "; exec <&-; sleep 0.1; echo a' 2>&1 | grep -A 1 expected
  s:1: expected cmd> 5
  s:1: the command ended with status 0

On a termination signal the tool ends in order first.

  $ printf 'a\nb\n' >s
  $ for end in HUP INT TERM; do env --default-signal=INT debugutil-script s sh -c 'echo a; echo x >here; read w || { sleep 0.1; echo left; } >left' & wait_for here .; kill -$end $!; wait $! 2>/dev/null; echo $?; cat left; rm here left; done
  129
  left
  130
  left
  143
  left
  $ mkfifo in; (trap '' HUP; exec debugutil-script s sh -c 'kill -HUP $$; echo a; echo x >here; read w <in; echo b') & wait_for here .; kill -HUP $!; sleep 0.05; echo >in; wait $!; echo $?
  0

After a signal the tool gets its time to end. A second signal half a second later kills it.

  $ start=$SECONDS; T=0.5 plays 'a\n' 'kill $PPID; exec sleep 20'
  Terminated
  143
  $ T=20 plays 'a\n' 'kill $PPID; sleep 0.7; kill $PPID; exec sleep 20'; echo "in time: $((SECONDS - start < 15))"
  Terminated
  143
  in time: 1

A script that cannot be played: the exit status is 2, and the command is not started.

  $ plays 'a\n( (re)\n' 'touch started'
  debugutil-script: s:2: * (glob)
  2
  $ plays 'a\n\377\n' 'touch started'
  debugutil-script: s:2: the line is not UTF-8 text
  2
  $ echo a >s; for arguments in none . /dev/zero '-t 0 s' '-t 86401 s' '-t x s' '' '--what s' '--tap --record s' 's none'; do debugutil-script $arguments; echo $?; done 2>&1
  debugutil-script: cannot read none: Error opening file .*: No such file or directory (re)
  2
  debugutil-script: cannot read .: .*directory (re)
  2
  debugutil-script: cannot read /dev/zero: larger than 64 MiB
  2
  debugutil-script: SECONDS is not between 0 and 86400; try debugutil-script --help
  2
  debugutil-script: SECONDS is not between 0 and 86400; try debugutil-script --help
  2
  debugutil-script: Cannot parse double value \xe2\x80\x9cx\xe2\x80\x9d for -t; try debugutil-script --help (esc)
  2
  debugutil-script: no FILE; try debugutil-script --help
  2
  debugutil-script: Unknown option --what; try debugutil-script --help
  2
  debugutil-script: --tap and --record exclude each other; try debugutil-script --help
  2
  debugutil-script: cannot start none: .* (re)
  2
  $ ls started
  ls: * (glob)
  [2]
  $ debugutil-script --help
  Usage:
    debugutil-script [OPTION?] FILE [COMMAND [ARGUMENT...]] (glob)
  
  Plays a checked script, or records one. The command is DebugUtil, or for example: ssh set-1 DebugUtil
  
  Help Options:
    -h, --help                Show help options
  
  Application Options:
    -t, --timeout=SECONDS     Await each line, and the end of the command, for that time; 10 by default
    --tap                     Print a line in TAP for each step
    --record                  Write the session to FILE as a script
    --version                 Print the version
  
  $ debugutil-script --version
  debugutil-script [0-9.]+ (re)

With --tap, one line of output per step.

  $ printf 'cmd> 5\na # b\nc\n' >s; debugutil-script --tap -t 0.3 -- s sh -c 'printf "cmd> "; read w; echo "a # b"; read w; echo c' 2>/dev/null
  1..4
  ok 1 - cmd> 5
  ok 2 - a \# b
  not ok 3 - c
  [1]

The two scripts without -t have ended.

  $ wait; head after.*
  ==> after.11 <==
  ten:1: expected a
  
  ==> after.9 <==
