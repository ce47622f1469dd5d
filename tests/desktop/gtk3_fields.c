/* Two windows, the first with two text fields and the second with one, that write their texts as one line to
 * standard output whenever one changes. With "password" the second field hides its text;
 * with "left" the first gives the focus to the second as soon as it holds a space; with "alone" there is no
 * second window. With "watched" the line goes on with the marked text and with the number of the field that
 * has the focus, "!" after it while its caret is at the end and nothing is selected. */
#include "gtk_fields.h"

#include <stdio.h>

static GtkWidget* fields[3];
static gboolean is_watched;

/* As a form does that moves on as soon as a field is full. */
static void leave(GtkEditable* changed, gpointer data) {
    (void)data;
    if (strchr(gtk_entry_get_text(GTK_ENTRY(changed)), ' '))
        gtk_widget_grab_focus(fields[1]);
}

static gboolean is_at_end(GtkWidget* field) {
    return !gtk_editable_get_selection_bounds(GTK_EDITABLE(field), NULL, NULL) &&
           gtk_editable_get_position(GTK_EDITABLE(field)) == gtk_entry_get_text_length(GTK_ENTRY(field));
}

static void report_focus(void) {
    printf("|%s|", marked ? marked : "");
    for (int i = 0; i < 3; ++i)
        if (fields[i] && gtk_widget_has_focus(fields[i]))
            printf("%d%s", i, is_at_end(fields[i]) ? "!" : "");
}

static void report(void) {
    for (int i = 0; i < 3; ++i)
        printf("%s%s", i ? "|" : "", fields[i] ? gtk_entry_get_text(GTK_ENTRY(fields[i])) : "");
    if (is_watched)
        report_focus();
    printf("\n");
    fflush(stdout);
}

static void window(const char* title, int first, int count) {
    GtkWidget* top = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    gtk_window_set_title(GTK_WINDOW(top), title);
    gtk_window_set_default_size(GTK_WINDOW(top), 400, 100 * count);
    GtkWidget* box = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
    gtk_box_set_homogeneous(GTK_BOX(box), TRUE);
    gtk_container_add(GTK_CONTAINER(top), box);
    for (int i = first; i < first + count; ++i) {
        fields[i] = gtk_entry_new();
        g_signal_connect(fields[i], "changed", G_CALLBACK(report), NULL);
        if (is_watched)
            watch(fields[i]);
        gtk_box_pack_start(GTK_BOX(box), fields[i], TRUE, TRUE, 0);
    }
    g_signal_connect(top, "destroy", G_CALLBACK(gtk_main_quit), NULL);
    gtk_widget_show_all(top);
}

int main(int count, char** arguments) {
    gtk_init(&count, &arguments);
    is_watched = has_argument(count, arguments, "watched");
    window("vanoka-one", 0, 2);
    if (!has_argument(count, arguments, "alone"))
        window("vanoka-two", 2, 1);
    if (has_argument(count, arguments, "password")) {
        gtk_entry_set_visibility(GTK_ENTRY(fields[1]), FALSE);
        gtk_entry_set_input_purpose(GTK_ENTRY(fields[1]), GTK_INPUT_PURPOSE_PASSWORD);
    }
    if (has_argument(count, arguments, "left"))
        g_signal_connect(fields[0], "changed", G_CALLBACK(leave), NULL);
    report();
    gtk_main();
    return 0;
}
