# The main job, told command by command: the processors of a hardware design, a
# connect command for one of them, saved, loaded again, changed and compared.
# Sourced, not run.
# shellcheck shell=bash
# shellcheck disable=SC2016 # commands are shown as they are typed

# tell_story ZELDEBUG WORK: with the tool ZELDEBUG, in the working folder WORK.
tell_story() {
  tool=$1 work=$2

  say "# The processors of the board that a debugger can reach, and the others."
  run 'zeldebug list examples/board/board.xml'

  say "# A connect command for one of them."
  run 'zeldebug command examples/board/board.xml lumacore_0 --cable quorla_podusb'

  say "# The same for a slower cable and a chain of one device, saved."
  run 'zeldebug set -C $work --mkdir examples/board/board.xml lumacore_0 \
    --cable quorla_podusb --frequency 3MHz --debug-device 1 \
    --device devicenr=1,partname=pk9ab100,irlength=6,idcode=0x1234093'
  run 'before=$(cat $work/etc/kvo_lumacore_0.opt)'

  say "# What was saved, loaded again."
  run 'zeldebug show -C $work examples/board/board.xml lumacore_0 | grep "^[a-z]*[.[]"'

  say "# Changed, with the rest as it was."
  run 'zeldebug set -C $work examples/board/board.xml lumacore_0 --frequency 12MHz'
  run 'after=$(cat $work/etc/kvo_lumacore_0.opt)'

  say "# The two saved commands compared."
  run 'zeldebug diff "$before" "$after"'

  say "# One file for all processors, which a team shares."
  mkdir "$work/team"
  run 'zeldebug init -C $work/team examples/board/board.xml'

  say "# The option files follow from it, and continuous integration looks after that."
  run 'zeldebug sync -C $work/team'
  run 'zeldebug sync -C $work/team --check'
}

zeldebug() { "$tool" "$@"; }

# run COMMAND: shows a command line and what it prints.
run() {
  say "\$ $1"
  eval "$1" >"$work/printed" 2>&1
  sed "s|$work|\$work|g" "$work/printed"
  say ""
}
