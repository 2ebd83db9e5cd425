// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A job type for Flamenco 3: tasks that share the frames of a scene, then a preview of all of them. Goes into the folder "scripts"
// beside flamenco-manager. Written after Flamenco's documentation; nobody has tried it on a farm yet.
const JOB_TYPE = {
    label: "Vallorin Normal Maps",
    description: "Renders the frames of a Vallorin scene",
    settings: [
        { key: "scene", type: "string", subtype: "dir_path", required: true, description: "The folder of the scene" },
        { key: "output", type: "string", subtype: "dir_path", required: true, description: "The folder that gets the frames" },
        { key: "tasks", type: "int32", default: 8, description: "How many tasks share the frames" },
    ],
};

function compileJob(job) {
    const { scene, output, tasks } = job.settings;

    const preview = author.Task("preview", "misc");
    preview.addCommand(author.Command("exec", { exe: "quarvel", args: ["render", scene, "--preview", `${output}/lit.mp4`] }));

    for (let shard = 1; shard <= tasks; shard++) {
        const render = author.Task(`render-${shard}-of-${tasks}`, "misc");
        render.addCommand(author.Command("exec", {
            exe: "quarvel",
            args: ["render", scene, "-o", `${output}/n.####.exr`, "--shard", `${shard}/${tasks}`, "--resume"],
        }));
        preview.addDependency(render);
        job.addTask(render);
    }
    job.addTask(preview);
}
