#pragma once

namespace host {

// Rules that keep a daemon on a home network upright where the design alone would fall. All off
// is the design; the daemon switches all on unless it is told otherwise. Each switch is one rule
// with one test where it acts.
struct Protection {
    // The web server serves no file outside its root: a path with a ".." part or a drive letter
    // gets the 404 response.
    bool files_only_below_html = false;

    // At 49 open connections the server closes the connections, but keeps listening.
    bool listener_outlives_overload = false;

    // A POST whose next packet belongs to another connection goes on with the body it has.
    bool missing_body_ends_the_wait = false;

    // After a failed request the server goes on with the next one, and the failed one's
    // connection is closed.
    bool stalled_queue_restarts = false;

    // Connections beyond the guard timers of binary sends are closed like all others.
    bool every_connection_is_closed = false;

    // The self-test waits between its steps until the unit is idle, and so never overflows its
    // queue.
    bool self_test_leaves_the_queue_room = false;

    // A script's "#include" that no quoted name follows is an error, where the search for the name
    // would never end.
    bool broken_include_is_an_error = false;

    // A serial device that has vanished is told of once and used again when it is back, where the
    // reader would stay deaf without a word.
    bool lost_modem_comes_back = false;

    // What filtered xAP messages said last is stored every few minutes, where only a clean stop of
    // the program would store it.
    bool recorded_values_are_saved = false;

    // A page's "meta http-equiv" tag that holds no digit is reported and passed over in the search
    // for a refresh, where the search would find it again for ever.
    bool tag_without_digits_is_passed_over = false;

    // Texts of the setup dialog lose what would break their line of the settings file: control
    // characters, double quotes, and in a unit's row the marks between its fields. Such a text
    // would end the saving half-way, or come back as other fields.
    bool settings_are_checked = false;

    // The status page is made for this machine, the units and the networks of the setting
    // `StatusNetworks` alone, where anybody may see and change the whole setup; others get the 404
    // response.
    bool status_only_for_the_house = false;

    // A form of the status page that a page of another site has sent gets the 404 response, where
    // any page that a browser of the house looks at could change the setup.
    bool foreign_forms_are_refused = false;

    // Texts that the status page shows lose their mark-up, where a quote ends a field and a script
    // runs. What the plug-in writes as mark-up itself, the states of devices, stays.
    bool page_values_are_escaped = false;

    // A POST is put together from all packets that its length promises, in the time that they take
    // to come, where a form of several packets loses the fields at the seams.
    bool posts_are_gathered_whole = false;

    // The fields of a form are split before they are decoded, where a "&" or "=" in a value cuts
    // it.
    bool form_values_keep_their_marks = false;

    [[nodiscard]] static constexpr Protection hardened() {
        return {.files_only_below_html = true,
                .listener_outlives_overload = true,
                .missing_body_ends_the_wait = true,
                .stalled_queue_restarts = true,
                .every_connection_is_closed = true,
                .self_test_leaves_the_queue_room = true,
                .broken_include_is_an_error = true,
                .lost_modem_comes_back = true,
                .recorded_values_are_saved = true,
                .tag_without_digits_is_passed_over = true,
                .settings_are_checked = true,
                .status_only_for_the_house = true,
                .foreign_forms_are_refused = true,
                .page_values_are_escaped = true,
                .posts_are_gathered_whole = true,
                .form_values_keep_their_marks = true};
    }
};

}  // namespace host
