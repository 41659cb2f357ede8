#!/usr/bin/env bash
# check_error_texts.sh SOURCES: every text with which an exception is thrown, and every reason of a refused filter, statement or
# file, is Persian, but for those of mistakes in a program (std::logic_error and its kin, std::length_error), in whose place
# ErrorText has a sentence. Texts may stand on the lines behind the throw.
set -euo pipefail
cd "$1"
wrong=$(find host module company desktop -path desktop/tools -prune -o \( -name '*.cpp' -o -name '*.h' \) -print0 | xargs -0 perl -CSD -Mutf8 -0777 -ne '
  while (/\b(?:throw\s+((?:\w+::)*\w+)|(Fail|Refuse|Incomplete|Problem))\s*\(((?:[^;"]|"(?:[^"\\]|\\.)*")*);/g) {
    my ($kind, $call, $rest) = ($1 // "", $2 // "", $3);
    next if $kind =~ /(?:logic_error|invalid_argument|out_of_range|length_error)$/;
    my $line = 1 + (substr($_, 0, $-[0]) =~ tr/\n//);
    my @texts = $rest =~ /"((?:[^"\\]|\\.)*)"/g;
    next if !@texts || grep { /[\x{600}-\x{6ff}]/ } @texts;
    next if !grep { /[A-Za-z]{3}/ } @texts;
    print "$ARGV:$line: @texts\n";
  }')
[[ -z $wrong ]] || { echo "texts that a user would not understand:"; echo "$wrong"; exit 1; }
