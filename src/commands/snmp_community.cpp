#include "commands/snmp_community.h"

#include "commands/shared/snmp_table.h"
#include "shell/args.h"
#include "shell/output.h"

#include <cstring>

namespace {

// The communities that always exist and see everything.
struct FixedCommunity {
    const char *node;
    const char *usage;
    const char *edited_line;
};

constexpr FixedCommunity PUBLIC_COMMUNITY = {
    SNMP_PUBLIC_COMMUNITY,
    "\nsnmp editpubliccomm        < PublicCommunityString<string> >",
    "\nEdit Public Community String successfully!",
};
constexpr FixedCommunity PRIVATE_COMMUNITY = {
    SNMP_PRIVATE_COMMUNITY,
    "\nsnmp editprivatecomm        < PrivateCommunityString<string> >",
    "\nEdit Private Community String successfully!",
};
constexpr int FIXED_COMMUNITIES = 2;

int refuse_long_community() {
    return refuse("\nCommunity String exceeds %d characters!!\n", SNMP_NAME_LIMIT);
}

bool view_exists(const char *name) {
    switch (find_snmp_row(SNMP_VIEWS, name).result) {
    case SearchResult::Match:
        return true;
    case SearchResult::Unreadable:
        return false;
    default:
        return complain("\n The view %s doesn't exist !\n", name);
    }
}

bool print_fixed_community(const FixedCommunity &community, const char *access) {
    UsualValue name;
    if (cfg_get_plain(name, community.node) != 0)
        return false;
    cli_printf("\n *%-32s %-32s %s", name.text(), "1", access);
    return true;
}

bool print_community(const SnmpRow &row) {
    const bool read_only = std::strcmp(row[2], "1") == 0;
    if (!read_only && std::strcmp(row[2], "2") != 0) {
        cli_printf("\n---error for getting value");
        return false;
    }
    cli_printf("\n %-32s %-32s %s", row[0], row[1], read_only ? "read_only" : "read_write");
    return true;
}

int edit_community(const CliContext &cli, const FixedCommunity &community) {
    if (arg_count(cli) != 1)
        return refuse("%s\n", community.usage);
    const char *name = arg_peek(cli, 0);
    if (exceeds(name, SNMP_NAME_LIMIT))
        return refuse_long_community();
    if (*name == '\0')
        return refuse("\nNo Community String !!\n");
    if (cfg_set_plain(name, community.node) != 0)
        return refuse("\nUnable to Edit!\n");
    return finish_snmp_change(community.edited_line);
}

} // namespace

int add_snmp_community(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 3)
        return refuse("\nsnmp addcomm        < CommunityString<string> ViewName<string>\n"
                      "                      Type<1/2>(1:Read Only/2:Read Write) >\n");
    const char *name = arg_peek(cli, 0);
    const char *view = arg_peek(cli, 1);
    const char *type_word = arg_peek(cli, 2);
    if (exceeds(name, SNMP_NAME_LIMIT))
        return refuse_long_community();
    if (exceeds(view, SNMP_NAME_LIMIT))
        return refuse("\nView Name exceeds %d characters!\n", SNMP_NAME_LIMIT);
    std::int32_t type = 0;
    if (int_parse_blank(type_word, type) == 0)
        return refuse("\nType must be a digital number!\n");
    if (type >= 3) // no lower bound
        return refuse("\nType must be a digital number as 1 or 2!\n");
    const std::optional<int> row = place_new_snmp_row(SNMP_COMMUNITIES, name).vacancy;
    if (!row || !view_exists(view))
        return CLI_REFUSED;
    write_snmp_row(*row, {{"community", name}, {"cmviewname", view}, {"cmtype", type_word}});
    return finish_snmp_change("\nAdd community successfully");
}

int delete_snmp_community(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 1)
        return refuse("\nsnmp delcomm        < CommunityString<string> >\n");
    const char *name = arg_peek(cli, 0);
    if (exceeds(name, SNMP_NAME_LIMIT))
        return refuse_long_community();
    return delete_snmp_row(SNMP_COMMUNITIES, name);
}

int show_snmp_communities(CliContext &, const char *, CliCommand *) {
    static constexpr SnmpColumn COLUMNS[] = {{"community"}, {"cmviewname"}, {"cmtype"}};
    cli_printf("\n SNMP Community Table\n\r"
               "\n Community Name                   View Name                        Access Right"
               "\n -------------------------------- -------------------------------- ------------");
    if (!print_fixed_community(PUBLIC_COMMUNITY, "read_only") ||
        !print_fixed_community(PRIVATE_COMMUNITY, "read_write"))
        return CLI_REFUSED;
    return list_snmp_rows(SNMP_COMMUNITIES, COLUMNS, print_community, FIXED_COMMUNITIES);
}

int edit_public_community(CliContext &cli, const char *, CliCommand *) {
    return edit_community(cli, PUBLIC_COMMUNITY);
}

int edit_private_community(CliContext &cli, const char *, CliCommand *) {
    return edit_community(cli, PRIVATE_COMMUNITY);
}
