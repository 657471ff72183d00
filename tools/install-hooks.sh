#!/usr/bin/env bash
# Lets git run tools/hooks in this clone: the style is checked before each commit, and the form of its message.
set -euo pipefail
cd "$(dirname "$0")/.."
git config core.hooksPath tools/hooks
echo "git runs tools/hooks in this clone from now on"
