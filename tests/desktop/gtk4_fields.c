/* Two windows, the first with two text fields and the second with one, that write their texts as one line to
 * standard output whenever one changes. With "password" the second field hides its text;
 * with "left" the first gives the focus to the second as soon as it holds a space; with "alone" there is no
 * second window. With "watched" the line goes on with the marked text and with the number of the field that
 * has the focus, "!" after it while its caret is at the end and nothing is selected. */
#include "gtk_fields.h"

#include <stdio.h>

static GtkWidget* fields[3];
static gboolean is_watched;

static GtkEditable* text_of(GtkWidget* field) {
    return gtk_editable_get_delegate(GTK_EDITABLE(field));
}

static gboolean is_at_end(GtkEditable* text) {
    return !gtk_editable_get_selection_bounds(text, NULL, NULL) &&
           gtk_editable_get_position(text) == (int)g_utf8_strlen(gtk_editable_get_text(text), -1);
}

static void report_focus(void) {
    printf("|%s|", marked ? marked : "");
    for (int i = 0; i < 3; ++i)
        if (fields[i] && gtk_widget_has_focus(GTK_WIDGET(text_of(fields[i]))))
            printf("%d%s", i, is_at_end(text_of(fields[i])) ? "!" : "");
}

static void report(void) {
    for (int i = 0; i < 3; ++i)
        printf("%s%s", i ? "|" : "", fields[i] ? gtk_editable_get_text(GTK_EDITABLE(fields[i])) : "");
    if (is_watched)
        report_focus();
    printf("\n");
    fflush(stdout);
}

/* As a form does that moves on as soon as a field is full. */
static void leave(GtkEditable* changed, gpointer data) {
    (void)data;
    if (strchr(gtk_editable_get_text(changed), ' '))
        gtk_widget_grab_focus(fields[1]);
}

static GtkWidget* field(int index, gboolean is_password) {
    fields[index] = is_password ? gtk_password_entry_new() : gtk_entry_new();
    g_signal_connect(fields[index], "changed", G_CALLBACK(report), NULL);
    if (is_watched)
        watch(text_of(fields[index]));
    gtk_widget_set_vexpand(fields[index], TRUE);
    return fields[index];
}

static void window(const char* title, int first, int count, gboolean has_password) {
    GtkWidget* top = gtk_window_new();
    gtk_window_set_title(GTK_WINDOW(top), title);
    gtk_window_set_decorated(GTK_WINDOW(top), FALSE);
    gtk_window_set_default_size(GTK_WINDOW(top), 400, 100 * count);
    GtkWidget* box = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
    gtk_box_set_homogeneous(GTK_BOX(box), TRUE);
    gtk_window_set_child(GTK_WINDOW(top), box);
    for (int i = first; i < first + count; ++i)
        gtk_box_append(GTK_BOX(box), field(i, has_password && i == 1));
    gtk_window_present(GTK_WINDOW(top));
}

int main(int count, char** arguments) {
    gtk_init();
    is_watched = has_argument(count, arguments, "watched");
    window("vanoka-one", 0, 2, has_argument(count, arguments, "password"));
    if (!has_argument(count, arguments, "alone"))
        window("vanoka-two", 2, 1, FALSE);
    if (has_argument(count, arguments, "left"))
        g_signal_connect(fields[0], "changed", G_CALLBACK(leave), NULL);
    report();
    while (g_list_model_get_n_items(gtk_window_get_toplevels()) > 0)
        g_main_context_iteration(NULL, TRUE);
    return 0;
}
