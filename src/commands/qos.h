// Quality of service: its switches, classifiers and up to 64 rules; and the traffic manager's
// switch.
#pragma once

#include "commands/shared/rows.h"
#include "config/apply.h"
#include "shell/dispatch.h"

// Words RULE OPTION VALUE [RANGE]: writes the nodes of one option of a rule. Other words are
// refused with the usage.
CliHandler add_qos_rule;

// Word RULE. Other words are refused with the usage, a number out of range with that of `add`.
CliHandler apply_qos_rule;
CliHandler suspend_qos_rule;

// Word RULE. Other words are reported with the usage and return CLI_DONE.
CliHandler delete_qos_rule;

// Lists the rules that have a name.
CliHandler list_qos_rules;

// The displays name the classifiers differently. Deliberate.
inline constinit auto qos_classifier_rows = command_table({
    family("http", "Set HTTP Classifier Status",
           reporting_switch_rows<"/qos/classifiers/http", APPLY_QOS, "HTTP Classifier Status",
                                 "Qos HTTP Classifier">),
    family("auto", "Set Auto Classifier Status",
           reporting_switch_rows<"/qos/classifiers/auto", APPLY_QOS, "Auto Classifier Status",
                                 "Qos Auto Classifier">),
});

inline constinit auto qos_all_rules_rows = command_table({
    family("status", "Set QoS Rules Status",
           reporting_switch_rows<"/qos/rule/enable", APPLY_QOS, "QoS Rules Status",
                                 "QoS Rules Status">),
});

inline constinit auto qos_rule_rows = command_table({
    {"add", "Add/Edit QoS Filter", add_qos_rule},
    {"apply", "Apply Single Rule", apply_qos_rule},
    {"suspend", "Suspend Single Rule", suspend_qos_rule},
    {"delete", "Delete Single Rule", delete_qos_rule},
});

inline constinit auto qos_rows = command_table({
    family("status", "Set QoS Status",
           reporting_switch_rows<"/qos/enable", APPLY_QOS, "Qos Status", "Qos Status">),
    family("classifier", "Set Qos Classifier Status", qos_classifier_rows),
    family("allrules", "Enable/Disable Qos Rules", qos_all_rules_rows),
    family("rule", "Add/Delete/Apply/Suspend Qos Rules", qos_rule_rows),
});

inline constinit auto qos_classifier_get_rows = command_table({
    {"http", "HTTP Classifier Status",
     show_numbered_line<"/qos/classifiers/http", "Qos Http Classifier: Disable\n",
                        "Qos Http Classifier: Enable\n">},
    {"auto", "Auto Classifier Status",
     show_numbered_line<"/qos/classifiers/auto", "Automatical Classifier: Disable\n",
                        "Automatical Classifier: Enable\n">},
});

inline constinit auto qos_all_rules_get_rows = command_table({
    {"status", "QoS Rules Status",
     show_numbered_line<"/qos/rule/enable", "QoS Rules Status: Disable\n",
                        "QoS Rules Status: Enable\n">},
    {"list", "Show Qos Rules", list_qos_rules},
});

inline constinit auto qos_family_get_rows = command_table({
    {"status", "Get QoS Status",
     show_numbered_line<"/qos/enable", "Qos Status: Disable\n", "Qos Status: Enable\n">},
    family("classifier", "Get Qos Classifier Status", qos_classifier_get_rows),
    family("allrules", "Show QoS Rules", qos_all_rules_get_rows),
});

inline constinit auto traffic_manager_get_rows = command_table({
    {"status", "Get Traffic Manager Status",
     show_numbered_line<"/trafficmgr/enable", "Traffic Manager Status: Disable\n",
                        "Traffic Manager Status: Enable\n">},
});

inline constexpr auto qos_set_rows = command_rows({
    family("qos", "Set QoS", qos_rows),
    // Restarts the WAN side, not the QoS service. Deliberate.
    family("trafficmgr", "Set Traffic Manager",
           reporting_switch_rows<"/trafficmgr/enable", APPLY_WAN, "Traffic Manager Status",
                                 "Traffic Manager Status">),
});

inline constexpr auto qos_get_rows = command_rows({
    family("qos", "Display QoS", qos_family_get_rows),
    family("trafficmgr", "Display Traffic Manager", traffic_manager_get_rows),
});
