#include "commands/snmp_usm.h"

#include "commands/shared/rows.h"
#include "commands/shared/snmp_table.h"
#include "config/unique_fd.h"
#include "shell/args.h"
#include "shell/output.h"

#include <cstring>
#include <fcntl.h>

namespace {

enum AuthProtocol : std::int32_t { AUTH_NONE = 1, AUTH_MD5, AUTH_SHA };
enum PrivProtocol : std::int32_t { PRIV_NONE = 1, PRIV_DES };
enum SecurityLevel : std::int32_t { LEVEL_NOAUTH = 1, LEVEL_AUTH, LEVEL_PRIV };
enum ViewType : std::int32_t { VIEW_INCLUDED = 1, VIEW_EXCLUDED, VIEW_UNTYPED };

constexpr int USER_NAME_LIMIT = 31;
constexpr int OID_LIMIT = 128;
constexpr std::size_t KEY_MINIMUM = 8;
constexpr std::size_t AUTH_KEY_LIMIT = 20;
constexpr std::size_t PRIV_KEY_LIMIT = 16;

bool is_between(std::int32_t number, std::int32_t low, std::int32_t high) {
    return number >= low && number <= high;
}

bool is_key(const char *word, std::size_t limit) {
    const std::size_t length = std::strlen(word);
    return length >= KEY_MINIMUM && length <= limit;
}

bool repeats_one_character(const char *key) {
    for (const char *at = key; *at != '\0'; ++at) {
        if (*at != *key)
            return false;
    }
    return true;
}

// The words of `snmp adduser`.
struct NewUser {
    const char *name;
    const char *group;
    const char *auth_word;
    const char *auth_key;
    const char *priv_word;
    const char *priv_key;
    std::int32_t auth = 0;
    std::int32_t priv = 0;
};

bool names_fit(const NewUser &user) {
    if (exceeds(user.name, USER_NAME_LIMIT))
        return complain("\n Username is over than %d characters!\n", USER_NAME_LIMIT);
    if (exceeds(user.group, USER_NAME_LIMIT))
        return complain("\n UserGroup is over than %d characters!\n", USER_NAME_LIMIT);
    return true;
}

bool protocols_fit(NewUser &user) {
    if (int_parse_blank(user.auth_word, user.auth) == 0 ||
        !is_between(user.auth, AUTH_NONE, AUTH_SHA))
        return complain("\n Auth Type must be a number within 1-3\n");
    if (user.auth != AUTH_NONE && !is_key(user.auth_key, AUTH_KEY_LIMIT))
        return complain("\n Auth key must be in the length of 8-20 characters!\n");
    if (int_parse_blank(user.priv_word, user.priv) == 0 ||
        !is_between(user.priv, PRIV_NONE, PRIV_DES))
        return complain("\n Priv Type must be a number within 1-2\n");
    if (user.priv != PRIV_NONE && !is_key(user.priv_key, PRIV_KEY_LIMIT))
        return complain("\n Priv key must be in the length of 8-16 characters!\n");
    if (user.auth == AUTH_NONE && user.priv == PRIV_DES)
        return complain("\n No Auth selected and Priv must be none!\n");
    return true;
}

// Checks the keys of protocols that are off, too.
bool keys_fit(const NewUser &user) {
    if (repeats_one_character(user.auth_key))
        return complain("\nAuth key can't use the same character!\n");
    if (repeats_one_character(user.priv_key))
        return complain("\nPriv key can't use the same character!\n");
    return true;
}

// False silently when the group does not exist, and after a message when it asks for more than the
// user has. Its level is compared as a number although add_snmp_group stores a word, so only a
// level that others wrote asks for anything. Deliberate.
bool group_admits(const NewUser &user) {
    CutSnmpText value;
    const std::optional<int> group =
        find_snmp_row(SNMP_GROUPS, user.group, CUT_SNMP_TEXT_LIMIT).match;
    if (!group || read_snmp_cell(value, "seculevel", *group) != 0)
        return false;
    if (value.number() == LEVEL_AUTH && user.auth == AUTH_NONE)
        return complain("\nAdd rejected, group is auth required and no priv needed!\n");
    if (value.number() == LEVEL_PRIV && (user.auth == AUTH_NONE || user.priv == PRIV_NONE))
        return complain("\nAdd rejected, group is both auth and priv required!\n");
    return true;
}

void write_user(int row, const NewUser &user) {
    write_snmp_row(row, {{"secuname", user.name}, {"mapgroup", user.group}});
    if (user.auth == AUTH_NONE) {
        // In a different order; the typed keys are dropped.
        write_snmp_row(row, {{"authprotocol", "none"},
                             {"privprotocol", "none"},
                             {"authkey", "none"},
                             {"privkey", "none"}});
        return;
    }
    const bool des = user.priv == PRIV_DES;
    write_snmp_row(row, {{"authprotocol", user.auth == AUTH_MD5 ? "MD5" : "SHA"},
                         {"authkey", user.auth_key},
                         {"privprotocol", des ? "DES" : "none"},
                         {"privkey", des ? user.priv_key : "none"}});
}

const char *security_level_name(std::int32_t level) {
    if (level == LEVEL_NOAUTH)
        return "noauth";
    return level == LEVEL_AUTH ? "auth" : "priv";
}

// The views of a group as its commands' words and messages call them.
constexpr const char *GROUP_VIEWS[] = {"ReadView", "WriteView", "NotifyView"};
constexpr int FIRST_VIEW_WORD = 2;

bool group_words_fit(const CliContext &cli, std::int32_t &level) {
    if (exceeds(arg_peek(cli, 0), SNMP_NAME_LIMIT))
        return complain("\nGroup name exceeds %d characters!!\n", SNMP_NAME_LIMIT);
    if (int_parse_blank(arg_peek(cli, 1), level) == 0)
        return complain("\nSelect Auth and Priv with a digit!!\n");
    if (!is_between(level, LEVEL_NOAUTH, LEVEL_PRIV))
        return complain("\nSelect Auth and Priv with a digit between 1-3!!\n");
    int word = FIRST_VIEW_WORD;
    for (const char *view : GROUP_VIEWS) {
        if (exceeds(arg_peek(cli, word++), SNMP_NAME_LIMIT))
            return complain("\n%s name can't exceed %d characters!!\n", view, SNMP_NAME_LIMIT);
    }
    return true;
}

// False after reporting a missing view; nothing when the table could not be read.
std::optional<bool> has_views(const CliContext &cli) {
    int word = FIRST_VIEW_WORD;
    for (const char *view : GROUP_VIEWS) {
        const SearchResult result =
            find_snmp_row(SNMP_VIEWS, arg_peek(cli, word++), CUT_SNMP_TEXT_LIMIT).result;
        if (result == SearchResult::Match)
            continue;
        if (result == SearchResult::Unreadable)
            return std::nullopt;
        cli_printf("\n%s doesn't exist!!\n", view);
        return false;
    }
    return true;
}

// The vacancy for a new row of a view. Rows with the same name are only reported. Nothing when the
// table is full, which is reported, or could not be read.
std::optional<int> place_new_view_row(const char *name) {
    CutSnmpText stored;
    for (int row = 1; row <= SNMP_VIEWS.capacity; ++row) {
        if (read_snmp_cell(stored, "viewname", row) != 0)
            return std::nullopt;
        if (stored.empty())
            return row;
        if (std::strcmp(stored.text(), name) == 0)
            report_taken_snmp_name(SNMP_VIEWS, name);
    }
    cli_printf("%s\n", SNMP_VIEWS.full_line);
    return std::nullopt;
}

bool print_user(const SnmpRow &row) {
    cli_printf("\n\r %-15s %-15s %-12s %-13s %s\n\n", row[0], row[1], "v3", row[2], row[3]);
    return true;
}

bool print_group(const SnmpRow &row) {
    cli_printf("\n\r %-10s %-15s %-15s %-15s  %-2s  %-13s", row[0], row[1], row[2], row[3], "v3",
               row[4]);
    return true;
}

bool print_view(const SnmpRow &row) {
    cli_printf("\n %-20s %-25s %s", row[0], row[1], row[2]);
    return true;
}

// False when the agent's status cannot be read, or its file cannot be opened although it runs.
bool show_engine_id(ValueBuffer &text) {
    CutSnmpText status;
    if (cfg_get(status, SNMP_STATUS) != 0)
        return false;
    if (status.number() != 1) {
        print_lines({"\nSNMP Agent Status is Suspended.", "EngineID is invalid"});
        return true;
    }
    const char *engine_id = read_engine_id("/var/net-snmp/snmpd.conf", text);
    if (engine_id == nullptr) {
        // With a full stop, unlike above. Deliberate.
        print_lines({"\nSNMP Agent Status is Suspended.", "EngineID is invalid."});
        return false;
    }
    cli_printf("\n\r%s\n", engine_id);
    return true;
}

} // namespace

int add_snmp_user(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 6)
        return refuse("\nsnmp adduser        < UserName<string> GroupName<string>\n"
                      "                      AuthProtocol<1/2/3>(1:none/2:MD5/3:SHA)\n"
                      "                      AuthKey<string>(Keys/none)\n"
                      "                      PrivProtocol<1/2>(1:none/2:DES)\n"
                      "                      PrivKey<string>(Keys/none) >\n");
    NewUser user = {arg_peek(cli, 0), arg_peek(cli, 1), arg_peek(cli, 2),
                    arg_peek(cli, 3), arg_peek(cli, 4), arg_peek(cli, 5)};
    if (!names_fit(user) || !protocols_fit(user) || !keys_fit(user))
        return CLI_REFUSED;
    const std::optional<int> row =
        place_new_snmp_row(SNMP_USERS, user.name, CUT_SNMP_TEXT_LIMIT).vacancy;
    if (!row || !group_admits(user))
        return CLI_REFUSED;
    write_user(*row, user);
    return finish_snmp_change("\n Add user successfully!");
}

int add_snmp_group(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 5)
        return refuse("\nsnmp addgroup       < GroupName<string>\n"
                      "                      Security Level<1/2/3>\n"
                      "                      (1:noauth_nopriv/2:auth_nopriv/3:auth_priv)\n"
                      "                      ReadView<string>(none:NULL) "
                      "WriteView<string>(none:NULL)\n"
                      "                      NotifyView<string>(none:NULL) >\n");
    std::int32_t level = 0;
    if (!group_words_fit(cli, level))
        return CLI_REFUSED;
    const char *name = arg_peek(cli, 0);
    const std::optional<bool> views = has_views(cli);
    if (!views)
        return CLI_REFUSED;
    // No failure, though nothing is written. Deliberate.
    if (!*views)
        return CLI_DONE;
    const ListPlace place = place_new_snmp_row(SNMP_GROUPS, name, CUT_SNMP_TEXT_LIMIT);
    const std::optional<int> row = place.vacancy;
    if (!row)
        return place.result == SearchResult::Unreadable ? CLI_REFUSED : CLI_DONE; // the same
    write_snmp_row(*row, {{"groupname", name},
                          {"seculevel", security_level_name(level)},
                          {"readview", arg_peek(cli, FIRST_VIEW_WORD)},
                          {"writeview", arg_peek(cli, FIRST_VIEW_WORD + 1)},
                          {"notifyview", arg_peek(cli, FIRST_VIEW_WORD + 2)}});
    return finish_snmp_change("\nGroup has created successfully");
}

int add_snmp_view(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 3)
        return refuse("\nsnmp addview        < ViewName<string> OID<string>\n"
                      "                      Type<1/2>(1:Included/2:Excluded) >\n");
    const char *name = arg_peek(cli, 0);
    const char *oid = arg_peek(cli, 1);
    if (exceeds(name, SNMP_NAME_LIMIT))
        return refuse("\nView Name exceeds %d characters!\n", SNMP_NAME_LIMIT);
    if (exceeds(oid, OID_LIMIT))
        return refuse("\nOID exceeds %d characters!\n", OID_LIMIT);
    std::int32_t type = 0;
    if (int_parse_blank(arg_peek(cli, 2), type) == 0)
        return refuse("\nViewType must be a digital!\n");
    if (!is_between(type, VIEW_INCLUDED, VIEW_UNTYPED))
        return refuse("\nViewType must be a digital in the length of 1-3!\n");
    const std::optional<int> row = place_new_view_row(name);
    if (!row)
        return CLI_REFUSED;
    write_snmp_row(*row, {{"viewname", name}, {"oid", oid}});
    // Type 3 passes the checks, and leaves a row without a type. Deliberate.
    if (type == VIEW_UNTYPED)
        return CLI_REFUSED;
    write_snmp_row(*row, {{"viewtype", type == VIEW_INCLUDED ? "included" : "excluded"}});
    return finish_snmp_change("\nThe specified view is added!");
}

int delete_snmp_user(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 1)
        return refuse("\nsnmp deluser        < UserName<string> >\n");
    return delete_snmp_row(SNMP_USERS, arg_peek(cli, 0), CUT_SNMP_TEXT_LIMIT);
}

int delete_snmp_group(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 1)
        return refuse("\nsnmp delgroup       < GroupName<string> >\n");
    return delete_snmp_row(SNMP_GROUPS, arg_peek(cli, 0), CUT_SNMP_TEXT_LIMIT);
}

int delete_snmp_view(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 1)
        return refuse("\nsnmp delview        < ViewName<string> >\n");
    // Only tests that the database answers; the deletions open their own. Deliberate.
    UniqueFd connection = open_deletion_connection();
    if (!connection)
        return CLI_REFUSED;
    keep_deletion_connection(std::move(connection));
    // A deletion moves the later rows down, so each search begins at the start. The number of
    // searches is limited, in case the database does not delete.
    for (int times = 0; times < SNMP_VIEWS.capacity; ++times) {
        const ListPlace place = find_snmp_row(SNMP_VIEWS, arg_peek(cli, 0), CUT_SNMP_TEXT_LIMIT);
        if (place.result == SearchResult::Unreadable)
            return CLI_REFUSED;
        const std::optional<int> row = place.match;
        if (!row)
            break;
        remove_snmp_row(SNMP_VIEWS, *row);
    }
    return finish_snmp_change(SNMP_VIEWS.deleted_line);
}

int show_snmp_users(CliContext &, const char *, CliCommand *) {
    static constexpr std::size_t PROTOCOL_LIMIT = 7;
    static constexpr SnmpColumn COLUMNS[] = {
        {"secuname", CUT_SNMP_TEXT_LIMIT},
        {"mapgroup", CUT_SNMP_TEXT_LIMIT},
        {"authprotocol", PROTOCOL_LIMIT},
        {"privprotocol", PROTOCOL_LIMIT},
    };
    ValueBuffer engine_id(ENGINE_ID_LIMIT);
    if (!engine_id)
        return refuse(NO_ENOUGH_MEMORY);
    if (!has_snmp_rows(SNMP_USERS, "\nThe User Table is empty!! ") || !show_engine_id(engine_id))
        return CLI_REFUSED;
    cli_printf("\n\r Username        Group Name      SNMP Version Auth-Protocol Priv-Protocol"
               "\n\r --------------- --------------- ------------ ------------- -------------");
    return list_snmp_rows(SNMP_USERS, COLUMNS, print_user);
}

int show_snmp_groups(CliContext &, const char *, CliCommand *) {
    static constexpr SnmpColumn COLUMNS[] = {
        {"groupname", CUT_SNMP_TEXT_LIMIT}, {"readview", CUT_SNMP_TEXT_LIMIT},
        {"writeview", CUT_SNMP_TEXT_LIMIT}, {"notifyview", CUT_SNMP_TEXT_LIMIT},
        {"seculevel", CUT_SNMP_TEXT_LIMIT},
    };
    if (!has_snmp_rows(SNMP_GROUPS, "\nThe Group Table is empty!! "))
        return CLI_REFUSED;
    cli_printf(
        "\n\r SNMP Group Settings\n"
        "\n\r Group Name ReadView Name   WriteView Name  NotifyView Name SNMP   Security   "
        "\n\r ---------- --------------- --------------- --------------- ---- -------------");
    return list_snmp_rows(SNMP_GROUPS, COLUMNS, print_group);
}

int show_snmp_views(CliContext &, const char *, CliCommand *) {
    static constexpr SnmpColumn COLUMNS[] = {
        {"viewname", CUT_SNMP_TEXT_LIMIT},
        {"oid", CUT_SNMP_TEXT_LIMIT},
        {"viewtype", CUT_SNMP_TEXT_LIMIT},
    };
    if (!has_snmp_rows(SNMP_VIEWS, "\nVacm View Table is empty!! "))
        return CLI_REFUSED;
    cli_printf("\n Vacm View Table Settings"
               "\n View Name            Subtree                   View Type "
               "\n -------------------- ------------------------- ----------");
    return list_snmp_rows(SNMP_VIEWS, COLUMNS, print_view);
}

const char *read_engine_id(const char *file, ValueBuffer &text) {
    // Where the agent writes it.
    static constexpr off_t OFFSET = 618;
    const UniqueFd descriptor(open(file, O_RDONLY | O_CLOEXEC));
    if (!descriptor)
        return nullptr;
    std::size_t length = 0;
    while (length < text.limit()) {
        const ssize_t got = pread(descriptor.get(), text.data() + length, text.limit() - length,
                                  OFFSET + static_cast<off_t>(length));
        if (got <= 0)
            break;
        length += static_cast<std::size_t>(got);
    }
    const char *engine_id = std::strstr(text.text(), "EngineID");
    return engine_id != nullptr ? engine_id : "";
}
