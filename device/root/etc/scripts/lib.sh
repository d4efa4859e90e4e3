# Shared by the device's scripts. They keep their own writes out of the journal, and enter there in
# words what a real device would have done.

did() { echo "did $*" >>/var/journal; }

node() { rgdb -g "$1"; }

set_node() { rgdb -q -s "$1" "$2"; }

del_node() { rgdb -q -d "$1"; }

# Writes the nodes on standard input, a line "/PATH = TEXT" each.
set_nodes() { rgdb -q -m -; }
