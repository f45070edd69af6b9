/* SPDX-License-Identifier: MIT */
/* game_gdbus PROGRAM GAME LANGUAGE [TROPHIES]: a game in C with GDBus. Starts the companion and prints what it hears.
 */

#include <gio/gio.h>
#include <stdio.h>
#include <sys/wait.h>

/* Runs in GDBus's own thread: a game that draws passes the text on to its main loop with g_idle_add(). */
static GDBusMessage *hear(GDBusConnection *bus, GDBusMessage *message, gboolean incoming, gpointer data)
{
    GVariant *body = g_dbus_message_get_body(message);
    const char *text = NULL;
    GDBusMessage *reply;

    (void)data;
    if (!incoming || g_dbus_message_get_message_type(message) != G_DBUS_MESSAGE_TYPE_METHOD_CALL
        || g_strcmp0(g_dbus_message_get_member(message), "recive") != 0 || body == NULL
        || !g_variant_is_of_type(body, G_VARIANT_TYPE("(s)")))
        return message;
    g_variant_get(body, "(&s)", &text);
    printf("heard %s\n", text);
    fflush(stdout);

    reply = g_dbus_message_new_method_reply(message);
    g_dbus_message_set_body(reply, g_variant_new("(s)", "heard"));
    g_dbus_connection_send_message(bus, reply, G_DBUS_SEND_MESSAGE_FLAGS_NONE, NULL, NULL);
    g_object_unref(reply);
    g_object_unref(message);
    return NULL;
}

/* The filter stands before the name is asked for, so that no call comes too early. */
static void on_bus(GDBusConnection *bus, const char *name, gpointer data)
{
    (void)name;
    (void)data;
    g_dbus_connection_add_filter(bus, hear, NULL, NULL);
}

static void on_ended(GPid companion, int status, gpointer loop)
{
    printf("ended %d\n", WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status));
    g_spawn_close_pid(companion);
    g_main_loop_quit(loop);
}

typedef struct {
    char **arguments;
    GMainLoop *loop;
} Start;

static void on_name(GDBusConnection *bus, const char *name, gpointer data)
{
    Start *start = data;
    GPid companion;

    (void)bus;
    (void)name;
    if (g_spawn_async(NULL, start->arguments, NULL, G_SPAWN_DO_NOT_REAP_CHILD, NULL, NULL, &companion, NULL))
        g_child_watch_add(companion, on_ended, start->loop);
    else
        g_main_loop_quit(start->loop);
}

int main(int argc, char **argv)
{
    Start start = {argv + 1, g_main_loop_new(NULL, FALSE)};

    if (argc < 4)
        return 2;
    g_bus_own_name(G_BUS_TYPE_SESSION, "com.quelmora.QtDBus.Torvane", G_BUS_NAME_OWNER_FLAGS_NONE, on_bus, on_name,
                   NULL, &start, NULL);
    g_main_loop_run(start.loop);
    g_main_loop_unref(start.loop);
    return 0;
}
