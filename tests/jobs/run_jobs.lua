-- Runs the small jobs and prints what each has made, for jobs_test.py:
--
--     tessimo --allow-io --run run_jobs.lua PICTURES [NAME ...]
--
-- PICTURES is an existing folder, which gets NAME.png of every job, or - for no pictures. With
-- names only these jobs run. Standard output is "== NAME" and the job's table, job after job.

local here = arg[0]:match("^(.*[/\\])") or "./"
local pictures = arg[1]
local only = #arg > 1 and {} or nil
for index = 2, #arg do only[arg[index]] = true end

local shop = dofile(here .. "workshop.lua")
local subjects = {
  "verifying", "scan_lines", "islands", "spiral", "finishing", "leads", "gouges", "placing",
  "cycles", "turning", "true_roughing", "true_finishing", "editing", "transforms", "lettering",
}
for _, subject in ipairs(subjects) do
  for _, job in ipairs(assert(loadfile(here .. subject .. ".lua"))(shop)) do
    if not only or only[job.name] then
      shop.work(job)
      if pictures ~= "-" then shop.picture(pictures .. "/" .. job.name .. ".png") end
    end
  end
end
