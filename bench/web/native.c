/* The same questions as bench/web/measure.mjs asks the module, asked of the library: native WORDS ENGLISH PREFIXES
   STROKES. A prefix a line; a line of x and y for each stroke. Prints the microseconds of each answer, the least of
   three, suggestions first. */
#include "vanoka.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

static char *read_all(const char *path, size_t *size) {
    FILE *file = fopen(path, "rb");
    char *text = NULL;
    if (!file || fseek(file, 0, SEEK_END) != 0)
        exit(1);
    *size = (size_t)ftell(file);
    rewind(file);
    text = malloc(*size + 1);
    if (!text || fread(text, 1, *size, file) != *size)
        exit(1);
    text[*size] = 0;
    fclose(file);
    return text;
}

static double microseconds(void) {
    struct timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return (double)now.tv_sec * 1e6 + (double)now.tv_nsec / 1e3;
}

int main(int count, char **paths) {
    size_t sizes[4], points = 0;
    char *texts[4], *line;
    static double stroke[4096], centers[52];
    const char *rows[] = {"qwertyuiop", "asdfghjkl", "zxcvbnm"};
    char labels[27] = "";
    vanoka_words *words;
    vanoka_decoder *decoder;
    vanoka_layout *layout;
    vanoka_answer *answer;
    if (count != 5)
        return 2;
    for (int at = 0; at < 4; ++at)
        texts[at] = read_all(paths[at + 1], &sizes[at]);
    for (int row = 0, key = 0; row < 3; ++row)
        for (const char *label = rows[row]; *label; ++label, ++key) {
            labels[key] = *label;
            centers[2 * key] = (double)(label - rows[row]) + row / 2.0;
            centers[2 * key + 1] = row;
        }
    if (vanoka_answer_create(&answer) || vanoka_words_create(texts[0], sizes[0], &words) ||
        vanoka_decoder_create_weighing((const char *const *)texts, sizes, 2, VANOKA_BY_PEOPLE, &decoder) ||
        vanoka_layout_create(labels, 26, centers, 26, &layout))
        return 1;
    for (line = strtok(texts[2], "\n"); line; line = strtok(NULL, "\n")) {
        double least = 1e9;
        for (int time = 0; time < 3; ++time) {
            const double start = microseconds();
            vanoka_words_suggest(words, NULL, line, strlen(line), 6, answer);
            if (microseconds() - start < least)
                least = microseconds() - start;
        }
        printf("suggest %.3f\n", least);
    }
    for (line = texts[3]; *line; line += *line == '\n') {
        double least = 1e9;
        for (points = 0; *line && *line != '\n'; ++points)
            stroke[points] = strtod(line, &line);
        for (int time = 0; time < 3; ++time) {
            const double start = microseconds();
            vanoka_decoder_decode(decoder, layout, stroke, points / 2, 1, 5, NULL, answer);
            if (microseconds() - start < least)
                least = microseconds() - start;
        }
        printf("stroke %.3f\n", least);
    }
    return 0;
}
