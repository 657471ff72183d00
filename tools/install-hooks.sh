#!/usr/bin/env bash
# Lets git run tools/hooks in this clone: before each commit the style and the form of the message are checked.
set -euo pipefail
cd "$(dirname "$0")/.."
git config core.hooksPath tools/hooks
echo "git runs tools/hooks in this clone from now on"
