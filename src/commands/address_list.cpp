#include "commands/address_list.h"

#include "config/apply.h"
#include "shell/output.h"

int add_address(const AddressList &list, ReadTarget value, const char *address) {
    const ListPlace place = find_in_list(list.entries, value, address, list.capacity);
    if (place.end == ListEnd::Full)
        return refuse(" Error! %s entry number only allow maximum %d\n", list.title, list.capacity);
    if (place.end == ListEnd::Match)
        return refuse("error! the %s address already exist!\n", list.kind);
    list.entries.write(place.index, address);
    pending_apply |= APPLY_WLAN;
    return CLI_DONE;
}

int delete_address(const AddressList &list, ReadTarget value, const char *address) {
    const ListPlace place = find_in_list(list.entries, value, address, LIST_BOUND);
    if (place.end != ListEnd::Match)
        return refuse("error macaddrdel!\n"); // whatever kind of address. Meant so.
    list.entries.remove(place.index);
    pending_apply |= APPLY_WLAN;
    return CLI_DONE;
}
