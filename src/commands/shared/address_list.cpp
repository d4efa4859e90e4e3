#include "commands/shared/address_list.h"

#include "config/apply.h"
#include "shell/output.h"

int add_address(const AddressList &list, ReadTarget value, const char *address) {
    const ListPlace place = find_in_list(list.entries, value, address, list.capacity);
    if (place.result == SearchResult::Full) {
        // The entry past the end is read and ignored. Deliberate.
        if (list.entries.read(value, list.capacity + 1) != 0)
            return CLI_REFUSED;
        return refuse(" Error! %s entry number only allow maximum %d\n", list.title, list.capacity);
    }
    if (place.result == SearchResult::Match)
        return refuse("error! the %s address already exist!\n", list.kind);
    const std::optional<int> vacancy = place.vacancy;
    if (!vacancy)
        return CLI_REFUSED;
    list.entries.write(*vacancy, address);
    return mark_for_apply(APPLY_WLAN);
}

int delete_address(const AddressList &list, ReadTarget value, const char *address) {
    const ListPlace place = find_in_list(list.entries, value, address, LIST_BOUND);
    if (place.result == SearchResult::Unreadable)
        return CLI_REFUSED;
    const std::optional<int> match = place.match;
    if (!match)
        return refuse("error macaddrdel!\n"); // for every kind of address. Deliberate.
    list.entries.remove(*match);
    return mark_for_apply(APPLY_WLAN);
}
